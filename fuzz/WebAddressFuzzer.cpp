// Reads any bytes as an address, and as two: a base and a reference seen from it.

#include "core/library/Library.h"
#include "core/text/AddressParts.h"
#include "core/text/PlainAddress.h"
#include "fuzz/Promise.h"

#include <algorithm>
#include <cstdint>

using namespace brinmoor;

namespace {

void checkForm(const WebAddress& address) {
    const std::string& text = address.string();
    fuzz::promise(std::all_of(text.begin(), text.end(),
                              [](char character) { return character > ' ' && character < 0x7F; }),
                  "a canonical string is printable ASCII");
    fuzz::promise(WebAddress::parse(text) == address, "a canonical string is a fixed point");
    fuzz::promise(addresses::canonicalText(text) == text, "the strict road agrees");
    fuzz::promise(WebAddress::parse(address.origin().string()) == address.origin(),
                  "an origin is an address");
}

void checkAddress(std::string_view text) {
    const auto address = WebAddress::parse(text);
    if (addresses::scanPlain(text))
        fuzz::promise(addresses::canonicalText(text) == text, "a plain address is canonical");
    const std::string identity = Library::identity(text);
    fuzz::promise(Library::identity(identity) == identity, "an identity is its own identity");
    if (!address) {
        fuzz::promise(identity == text, "a text that is no address is its own identity");
        return;
    }
    checkForm(*address);
    fuzz::promise(Library::identity(address->string()) == identity,
                  "text and canonical string have one identity");
    if (const auto valid = Library::validatedURL(text))
        fuzz::promise(*valid == *address && !valid->host().empty() && !valid->hasUserInfo(),
                      "a valid address has a host and no user");
}

void checkReference(std::string_view base, std::string_view reference) {
    const auto from = WebAddress::parse(base);
    if (!from)
        return;
    if (const auto target = WebAddress::resolve(reference, *from))
        checkForm(*target);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    checkAddress(text);
    if (const auto cut = text.find(' '); cut != std::string_view::npos)
        checkReference(text.substr(0, cut), text.substr(cut + 1));
    return 0;
}
