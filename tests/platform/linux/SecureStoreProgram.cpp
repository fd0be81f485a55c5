// read|write|remove SERVICE ACCOUNT [BYTES]: one call on the real store, its result on one line.

#include "platform/linux/LibsecretStore.h"

#include <cstdio>
#include <string>
#include <vector>

using namespace brinmoor;

namespace {

std::string words(SecureStoreFailure failure) {
    switch (failure) {
    case SecureStoreFailure::unavailable:
        return "unavailable";
    case SecureStoreFailure::locked:
        return "locked";
    case SecureStoreFailure::failed:
        break;
    }
    return "failed";
}

std::string words(const Result<Done, SecureStoreFailure>& result) {
    return result ? "done" : words(result.error());
}

std::string words(const Result<std::optional<std::string>, SecureStoreFailure>& result) {
    if (!result)
        return words(result.error());
    return result.value() ? "found " + *result.value() : "nothing";
}

} // namespace

int main(int count, char** arguments) {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    if (given.size() < 3)
        return 2;
    LibsecretStore store;
    std::string result;
    if (given[0] == "read")
        result = words(store.read(given[1], given[2]));
    else if (given[0] == "write" && given.size() == 4)
        result = words(store.write(given[1], given[2], given[3]));
    else if (given[0] == "remove")
        result = words(store.remove(given[1], given[2]));
    std::puts(result.c_str());
    return 0;
}
