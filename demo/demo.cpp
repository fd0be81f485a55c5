#include "platform/linux/Desktop.h"
#include "platform/linux/Places.h"
#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Eventually.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <thread>

namespace {

using namespace brinmoor;
using namespace brinmoor::testing;

constexpr auto page = R"(<!doctype html><html lang="en"><head><title>Harbour notes</title>
<meta property="og:title" content="How tide tables are made">
<link rel="icon" href="/icon.png"></head>
<body style="font: 20px/1.6 serif; max-width: 34em; margin: 4em auto; color: #292e26">
<main><h1>How tide tables are made</h1>
<p>Twice a day the sea comes in, and twice a day somebody had known when.</p></main>
</body></html>)";

std::string beside(const std::string& program) {
    return QCoreApplication::applicationDirPath().toStdString() + "/" + program;
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The screen as it is, when what moves has come to rest.
std::string picture(const std::string& folder, const std::string& name) {
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    const std::string path = folder + "/" + name + ".png";
    QProcess::execute(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"),
                                                 QString::fromStdString(path)});
    return path;
}

bool runs(const Workspace& desktop, std::int32_t process) {
    return std::ranges::any_of(desktop.runningApplications(), [&](const auto& application) {
        return application.processIdentifier == process;
    });
}

bool putInFront(Workspace& desktop, std::int32_t process) {
    return eventually([&] {
        const auto front = desktop.frontmostApplication();
        if (front && front->processIdentifier == process)
            return true;
        for (const auto& application : desktop.runningApplications())
            if (application.processIdentifier == process)
                desktop.activate(application);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        return false;
    });
}

int failed(const std::string& what) {
    std::cerr << "brinmoor-demo: " << what << '\n';
    return 1;
}

int roadOfOneSave(const std::string& pictures) {
    const std::string library = systemPlaces().libraryFile;
    std::filesystem::create_directories(pictures);

    ChildProcess brinmoor(ChildOptions{{beside("brinmoor")}, {}, true});
    const auto desktop = makeWorkspace();
    if (!eventually([&] { return runs(*desktop, brinmoor.process()); }))
        return failed("Brinmoor shows no window.");
    const std::string first = picture(pictures, "1-library");

    ChromiumSession chromium(
        {.nativeHost = beside("brinmoor-browser-host"),
         .extensionFolder = BRINMOOR_EXTENSION_FOLDER,
         .pages = [](const HttpRequest&) { return HttpAnswer{.body = page}; }});
    if (!chromium.start({"http://harbour.test/tides"}, {"--window-size=900,700"}))
        return failed("Chromium does not start, or its extension does not answer.");
    if (chromium.loadedTab("http://harbour.test/tides") < 0)
        return failed("The page does not load.");
    if (!putInFront(*desktop, chromium.process()))
        return failed("Chromium does not come to the front.");

    std::cout << "Chromium shows a page. Pressing Shift+Super+K." << std::endl;
    TestKeyboard().chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
    if (!eventually([&] { return !bytesOf(library).empty(); }))
        return failed("Nothing was saved. The screen: " + picture(pictures, "2-nothing-saved"));
    const std::string second = picture(pictures, "2-saved");
    if (!putInFront(*desktop, brinmoor.process()))
        return failed("The library does not come to the front.");
    const std::string third = picture(pictures, "3-library-with-link");

    std::cout << "\nlibrary.json:\n" << bytesOf(library) << "\n\nPictures:\n";
    std::cout << "  " << first << "\n  " << second << "\n  " << third << std::endl;
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    if (count != 2) {
        std::cerr << "usage: brinmoor-demo FOLDER-FOR-PICTURES\n";
        return 2;
    }
    return roadOfOneSave(arguments[1]);
}
