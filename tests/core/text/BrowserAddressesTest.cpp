#include "core/library/Library.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace brinmoor {
namespace {

constexpr std::size_t addressCount = 200'000;

/// Addresses as the URL parser of Node serialises them, which is the one that browsers share.
std::vector<std::string> browserAddresses() {
    const std::string command =
        std::string(BRINMOOR_NODE " '" BRINMOOR_ADDRESS_SCRIPT "' ") + std::to_string(addressCount);
    const std::unique_ptr<FILE, int (*)(FILE*)> output(::popen(command.c_str(), "r"), ::pclose);
    std::vector<std::string> result(1);
    for (int byte = std::fgetc(output.get()); byte != EOF; byte = std::fgetc(output.get()))
        if (byte == '\n')
            result.emplace_back();
        else
            result.back() += static_cast<char>(byte);
    result.pop_back();
    return result;
}

TEST(BrowserAddresses, areAllAcceptedAndHaveAStableForm) {
    const auto addresses = browserAddresses();
    ASSERT_EQ(addresses.size(), addressCount);
    for (const std::string& text : addresses) {
        const auto address = Library::validatedURL(text);
        ASSERT_TRUE(address) << text;
        ASSERT_EQ(Library::validatedURL(address->string()), address) << text;
        ASSERT_EQ(Library::identity(text), Library::identity(address->string())) << text;
    }
}

} // namespace
} // namespace brinmoor
