#include "core/text/AddressIdentity.h"

#include "core/text/PlainAddress.h"
#include "core/text/WebAddress.h"

namespace brinmoor::addresses {

namespace {

void lower(std::string& text, std::size_t begin, std::size_t end) {
    for (std::size_t at = begin; at < end; ++at)
        text[at] = lowered(text[at]);
}

std::size_t offset(const WebAddress& address, std::string_view part) {
    return static_cast<std::size_t>(part.data() - address.string().data());
}

void writeIdentityThoroughly(std::string_view text, std::string& identity) {
    const auto address = WebAddress::parse(text);
    if (!address) {
        identity.assign(text);
        return;
    }
    identity = address->string();
    lower(identity, 0, address->scheme().size());
    const std::size_t host = offset(*address, address->host());
    lower(identity, host, host + address->host().size());
    if (address->path() == "/")
        identity.erase(offset(*address, address->path()), 1);
}

} // namespace

std::string_view identityOf(std::string_view text, std::string& room) {
    const auto plain = scanPlain(text);
    if (!plain) {
        writeIdentityThoroughly(text, room);
        return room;
    }
    const bool isBare = plain->pathEnd - plain->pathBegin == 1;
    if (!isBare && !plain->hasCapitals)
        return text;
    room.assign(text);
    lower(room, 0, plain->hostEnd);
    if (isBare)
        room.erase(plain->pathBegin, 1);
    return room;
}

} // namespace brinmoor::addresses
