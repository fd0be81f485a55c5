#include "core/text/AddressParts.h"
#include "core/text/WebAddress.h"

namespace brinmoor {

namespace {

using addresses::Parts;

void dropLastSegment(std::string& path) {
    const auto slash = path.rfind('/');
    path.erase(slash == std::string::npos ? 0 : slash);
}

/// RFC 3986, section 5.2.4.
std::string withoutDotSegments(std::string_view input) {
    std::string output;
    while (!input.empty()) {
        if (input.starts_with("../")) {
            input.remove_prefix(3);
        } else if (input.starts_with("./") || input.starts_with("/./")) {
            input.remove_prefix(2);
        } else if (input == "/.") {
            input = "/";
        } else if (input.starts_with("/../") || input == "/..") {
            input = input == "/.." ? "/" : input.substr(3);
            dropLastSegment(output);
        } else if (input == "." || input == "..") {
            input = {};
        } else {
            const auto end = std::min(input.find('/', 1), input.size());
            output += input.substr(0, end);
            input.remove_prefix(end);
        }
    }
    return output;
}

/// RFC 3986, section 5.2.3.
std::string merged(std::string_view reference, const Parts& base) {
    if (base.authority && base.path.empty())
        return '/' + std::string(reference);
    const auto slash = base.path.rfind('/');
    const auto folder = slash == std::string_view::npos ? "" : base.path.substr(0, slash + 1);
    return std::string(folder) += reference;
}

std::string targetPath(const Parts& reference, const Parts& base) {
    if (reference.path.empty())
        return std::string(base.path);
    if (reference.path.starts_with('/'))
        return withoutDotSegments(reference.path);
    return withoutDotSegments(merged(reference.path, base));
}

std::string composed(const Parts& parts) {
    std::string result(*parts.scheme);
    result += ':';
    if (parts.authority)
        (result += "//").append(*parts.authority);
    else if (parts.path.starts_with("//"))
        result += "/."; // or the path would be read as an authority
    result += parts.path;
    if (parts.query)
        (result += '?').append(*parts.query);
    if (parts.fragment)
        (result += '#').append(*parts.fragment);
    return result;
}

} // namespace

std::optional<WebAddress> WebAddress::resolve(std::string_view reference, const WebAddress& base) {
    if (reference.size() > addresses::longestAddress)
        return std::nullopt;
    Parts target = addresses::split(reference);
    const Parts from = addresses::split(base.text_);
    std::string path;
    if (target.scheme || target.authority) {
        path = withoutDotSegments(target.path);
    } else {
        path = targetPath(target, from);
        target.authority = from.authority;
        if (target.path.empty() && !target.query)
            target.query = from.query;
    }
    if (!target.scheme)
        target.scheme = from.scheme;
    target.path = path;
    return parse(composed(target));
}

} // namespace brinmoor
