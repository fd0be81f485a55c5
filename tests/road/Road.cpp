#include "tests/road/Road.h"

#include "platform/Clock.h"
#include "platform/linux/Places.h"

#include <QGuiApplication>
#include <QProcess>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace brinmoor::testing {
namespace {

std::unique_ptr<ChromiumSession> sharedBrowser;

std::string pageTitled(const std::string& title, const std::string& head = {},
                       const std::string& body = {}) {
    return "<!doctype html><html><head><title>" + title + "</title>" + head +
           "</head><body><main><h1>" + title + "</h1>" + body + "</main></body></html>";
}

xcb_keycode_t keyOf(char letter) {
    // The letters' places on a US keyboard.
    static const std::string rows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    static constexpr xcb_keycode_t firstKeys[] = {24, 38, 52};
    for (std::size_t row = 0; row < 3; ++row)
        if (const auto place = rows[row].find(letter); place != std::string::npos)
            return static_cast<xcb_keycode_t>(firstKeys[row] + place);
    return letter == ',' ? xcb_keycode_t{59} : XKey::space;
}

} // namespace

HttpAnswer roadPage(const HttpRequest& request) {
    if (request.path.starts_with("/metadata"))
        return {.body = pageTitled(
                    "Site name",
                    "<meta property=\"og:title\" content=\"Tide tables &amp; how they are made\">"
                    "<link rel=\"apple-touch-icon\" href=\"/touch.png\">"
                    "<link rel=\"icon\" href=\"/icon.png?a&amp;b\">")};
    if (request.path.starts_with("/moving"))
        return {.body = pageTitled(
                    "Moving",
                    // Browsers let a page do this some two hundred times before they slow it down.
                    "<script>let n = 0; setInterval(() => history.replaceState(null, '',"
                    " '/moving?' + ++n), 15);</script>")};
    if (request.path.starts_with("/throwing"))
        return {.body = pageTitled("Throwing", "<script>throw new Error('no');</script>")};
    if (request.path.starts_with("/huge"))
        return {.body = pageTitled(std::string(2'000'000, 'x'))};
    return {.body = pageTitled("Page " + request.path)};
}

ChromiumOptions roadBrowser() {
    const Installation installation = Installation::ofThisProgram();
    return {.nativeHost = installation.browserHost.toStdString(),
            .extensionFolder = BRINMOOR_EXTENSION_FOLDER,
            .pages = roadPage};
}

ChromiumSession& Road::chromium() {
    if (!sharedBrowser) {
        sharedBrowser = std::make_unique<ChromiumSession>(roadBrowser());
        if (!sharedBrowser->start({"http://start.test/"}))
            throw std::runtime_error("Chromium did not start");
    }
    return *sharedBrowser;
}

void endRoadBrowser() {
    sharedBrowser.reset();
}

Road::Road() {
    ::setenv("XDG_DATA_HOME", home_.path("data").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", home_.path("config").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", home_.path("cache").c_str(), 1);
    panels_ = std::make_unique<QuickPanels>();
    real_ = std::make_unique<RealParts>(Installation::ofThisProgram(), panels_->engine());
}

Road::~Road() {
    shell_.reset();
    settle();
}

void Road::given(Library library) {
    ASSERT_TRUE(LibraryFile(systemPlaces().libraryFile).save(library).ok());
}

void Road::givenPreference(const std::string& key, const PreferenceValue& value) {
    ASSERT_TRUE(real_->parts().preferences.set(key, value));
}

SavedLink Road::link(const std::string& url, const std::string& title) {
    Clock& clock = real_->parts().clock;
    return {url, title, "Chromium", "Inbox", clock.newUuid(), clock.now()};
}

AppDelegate& Road::shell() {
    if (!shell_) {
        shell_ = std::make_unique<AppDelegate>(real_->parts(), *panels_);
        shell_->launch();
        EXPECT_TRUE(waitUntil([&] { return panels_->applicationIsActive(); }));
        EXPECT_TRUE(shell_->model()->shortcutErrors().empty());
    }
    return *shell_;
}

void Road::browse(const std::vector<std::string>& addresses) {
    std::string list;
    for (const std::string& address : addresses)
        list += (list.empty() ? "\"" : ",\"") + address + "\"";
    (void)chromium().call("windows.create", "[{\"url\":[" + list + "],\"focused\":true}]");
    for (const std::string& address : addresses)
        ASSERT_GE(chromium().loadedTab(address), 0) << address;
    const std::string last = std::to_string(chromium().loadedTab(addresses.back()));
    (void)chromium().call("tabs.update", "[" + last + ",{\"active\":true}]");
    putBrowserInFront();
}

bool Road::browserIsInFront() {
    const auto front = real_->parts().workspace.frontmostApplication();
    return front && front->bundleIdentifier == "org.chromium.Chromium";
}

void Road::putBrowserInFront() {
    Workspace& workspace = real_->parts().workspace;
    EXPECT_TRUE(waitUntil([&] {
        if (!browserIsInFront())
            for (const auto& application : workspace.runningApplications())
                if (application.processIdentifier == chromium().process())
                    workspace.activate(application);
        return browserIsInFront();
    }));
}

bool Road::isOpen(const std::string& address) {
    return chromium().call("tabs.query", "[{}]").find("\"" + address + "\"") != std::string::npos;
}

void Road::goTo(const std::string& address, const std::string& next) {
    const int tab = chromium().loadedTab(address);
    (void)chromium().call("tabs.update",
                          "[" + std::to_string(tab) + ",{\"url\":\"" + next + "\"}]");
    ASSERT_GE(chromium().loadedTab(next), 0);
}

void Road::press(RoadKey key) {
    std::vector<xcb_keycode_t> held{XKey::superLeft};
    if (key != RoadKey::note)
        held.push_back(XKey::shiftLeft);
    if (key == RoadKey::note || key == RoadKey::window)
        held.push_back(XKey::altLeft);
    if (key == RoadKey::selected)
        held.push_back(XKey::controlLeft);
    keyboard_.chord(held, key == RoadKey::search ? XKey::letterO : XKey::letterK);
}

void Road::type(const std::string& letters) {
    for (const char letter : letters)
        keyboard_.tap(keyOf(letter));
}

void Road::tap(xcb_keycode_t key) {
    keyboard_.tap(key);
}

void Road::tapWithControl(xcb_keycode_t key) {
    keyboard_.chord({XKey::controlLeft}, key);
}

Words Road::lastWords() {
    const auto& toast = model().toast();
    return toast ? Words(toast->title, toast->message) : Words();
}

Words Road::noticeWith(const std::string& title) {
    EXPECT_TRUE(waitUntil([&] { return lastWords().first == title; })) << lastWords().first;
    EXPECT_NE(shell().toastPanel(), nullptr);
    const Panel* panel = shell().toastPanel();
    EXPECT_TRUE(panel == nullptr || panel->isVisible());
    return lastWords();
}

bool Road::settled() {
    return waitUntil([&] { return !model().isCapturing(); });
}

Library Road::stored() const {
    return LibraryFile(systemPlaces().libraryFile).load().value();
}

std::vector<std::string> Road::storedTitles() const {
    std::vector<std::string> titles;
    for (const SavedLink& each : stored().links)
        titles.push_back(each.title);
    return titles;
}

void Road::picture(const std::string& name) {
    const char* folder = std::getenv("BRINMOOR_PICTURES");
    if (folder == nullptr)
        return;
    // The panel's way in takes a moment.
    (void)waitUntil([] { return false; }, std::chrono::milliseconds(400));
    QProcess::execute(QStringLiteral("import"),
                      {QStringLiteral("-window"), QStringLiteral("root"),
                       QString::fromStdString(folder + ("/" + name + ".png"))});
}

} // namespace brinmoor::testing
