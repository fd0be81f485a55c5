// brinmoor-local-service [FOLDER [PORT [OWNER]]]: the account service, for trying things by hand.
// Runs until its input ends.

#include "tests/service/LocalService.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

std::uint16_t portOf(const std::string& text) {
    std::uint16_t port = 0;
    std::from_chars(text.data(), text.data() + text.size(), port);
    return port;
}

} // namespace

int main(int count, char** arguments) {
    std::vector<std::string> given(arguments + 1, arguments + count);
    if (given.empty())
        given.emplace_back("brinmoor-service");
    const std::filesystem::path folder = std::filesystem::absolute(given[0]);
    std::filesystem::create_directories(folder);
    const brinmoor::testing::LocalService service(
        {.mailFolder = folder / "mails",
         .ownerAddress = given.size() > 2 ? given[2] : "owner@brinmoor.invalid",
         .identityFile = folder / "identity.pem",
         .port = given.size() > 1 ? portOf(given[1]) : std::uint16_t{8443}});
    const auto certificate = folder / "certificate.pem";
    std::ofstream(certificate) << service.certificate();
    std::cout << "The service is at  " << service.address() << "\n"
              << "Its certificate is " << certificate.string() << "\n"
              << "Mails arrive in    " << (folder / "mails").string() << "\n"
              << "End it with Ctrl+D." << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
    }
    return 0;
}
