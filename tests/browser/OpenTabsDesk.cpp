#include "tests/browser/OpenTabsDesk.h"

#include "platform/linux/Desktop.h"
#include "tests/support/BraveInstallation.h"
#include "tests/support/Eventually.h"

#include <map>
#include <stdexcept>

namespace brinmoor::testing {
namespace {

constexpr auto scriptLimit = std::chrono::seconds(60);

struct SharedBrowser {
    explicit SharedBrowser(ChromiumOptions options) : session(std::move(options)) {}
    ChromiumSession session;
    RealBrowser browser{session};
};

std::map<std::string, std::unique_ptr<SharedBrowser>>& sharedBrowsers() {
    static std::map<std::string, std::unique_ptr<SharedBrowser>> browsers;
    return browsers;
}

const BraveInstallation& braveInstallation() {
    static const BraveInstallation installation;
    return installation;
}

RealBrowser& shared(const std::string& name, const std::string& program) {
    auto& browser = sharedBrowsers()[name];
    if (!browser) {
        ChromiumOptions options{BRINMOOR_HOST, BRINMOOR_EXTENSION, titledPage};
        options.program = program;
        browser = std::make_unique<SharedBrowser>(std::move(options));
        const std::size_t others = browser->session.sockets().size();
        if (!browser->session.start({"http://start.test/" + name}, {"--class=" + name}) ||
            !browser->session.waitForSockets(others + 1))
            throw std::runtime_error(name + " doesn't start");
    }
    return browser->browser;
}

RealTab tabOf(const QJsonObject& tab) {
    return {tab[u"id"].toInt(), tab[u"windowId"].toInt(), tab[u"index"].toInt(),
            tab[u"url"].toString().toStdString()};
}

} // namespace

HttpAnswer titledPage(const HttpRequest& request) {
    return {200, "text/html; charset=utf-8", "<title>Page " + request.path.substr(1) + "</title>"};
}

QJsonDocument RealBrowser::call(const char* function, const QJsonArray& arguments) const {
    const std::string result = session_.call(
        function, QJsonDocument(arguments).toJson(QJsonDocument::Compact).toStdString());
    EXPECT_FALSE(result.starts_with("error")) << function << ": " << result;
    return QJsonDocument::fromJson(QByteArray::fromStdString(result));
}

int RealBrowser::openWindow(const std::vector<std::string>& addresses) {
    QJsonArray list;
    for (const std::string& address : addresses)
        list.append(QString::fromStdString(address));
    const QJsonObject options{{QStringLiteral("url"), list}};
    const int window = call("windows.create", {options}).object()[u"id"].toInt();
    const bool loaded = eventually([&] {
        const auto now = tabsOf(window);
        for (std::size_t i = 0; i < addresses.size(); ++i)
            if (i >= now.size() || now[i].url != addresses[i])
                return false;
        return true;
    });
    EXPECT_TRUE(loaded);
    return window;
}

int RealBrowser::openTab(int window, const std::string& address) {
    QJsonObject options{{QStringLiteral("windowId"), window}, {QStringLiteral("active"), false}};
    if (!address.empty())
        options.insert(QStringLiteral("url"), QString::fromStdString(address));
    return call("tabs.create", {options}).object()[u"id"].toInt();
}

std::vector<RealTab> RealBrowser::tabs() const {
    std::vector<RealTab> found;
    const QJsonArray list = call("tabs.query", {QJsonObject()}).array();
    for (const auto& each : list)
        found.push_back(tabOf(each.toObject()));
    return found;
}

std::vector<RealTab> RealBrowser::tabsOf(int window) const {
    std::vector<RealTab> found;
    const QJsonObject filter{{QStringLiteral("windowId"), window}};
    const QJsonArray list = call("tabs.query", {filter}).array();
    for (const auto& each : list)
        found.push_back(tabOf(each.toObject()));
    return found;
}

bool RealBrowser::isOpen(int tab) const {
    const auto now = tabs();
    return std::ranges::find(now, tab, &RealTab::id) != now.end();
}

void RealBrowser::close(int tab) {
    (void)call("tabs.remove", {tab});
}

void RealBrowser::goTo(int tab, const std::string& address) {
    (void)call("tabs.update",
               {tab, QJsonObject{{QStringLiteral("url"), QString::fromStdString(address)}}});
    EXPECT_TRUE(eventually([&] {
        const auto now = tabs();
        const auto place = std::ranges::find(now, tab, &RealTab::id);
        return place != now.end() && place->url == address;
    }));
}

void RealBrowser::move(int tab, int place) {
    (void)call("tabs.move", {tab, QJsonObject{{QStringLiteral("index"), place}}});
}

void RealBrowser::moveToNewWindow(int tab) {
    (void)call("windows.create", {QJsonObject{{QStringLiteral("tabId"), tab}}});
}

void RealBrowser::minimize(int window) {
    (void)call("windows.update",
               {window, QJsonObject{{QStringLiteral("state"), QStringLiteral("minimized")}}});
}

void RealBrowser::bringForward(int window) {
    (void)call("windows.update", {window, QJsonObject{{QStringLiteral("focused"), true}}});
}

void RealBrowser::reset(const std::string& address) {
    const auto before = tabs();
    openWindow({address});
    for (const RealTab& tab : before)
        (void)session_.call("tabs.remove", "[" + std::to_string(tab.id) + "]");
    EXPECT_TRUE(eventually([&] { return tabs().size() == 1; }));
}

OpenTabsDesk::OpenTabsDesk()
    : workspace(makeWorkspace()), scripts(QStringLiteral(BRINMOOR_AUTOMATION)),
      search(*workspace, scripts), cleanup(*workspace, scripts) {
    chromium().reset("http://start.test/chromium");
    brave().reset("http://start.test/brave");
}

RealBrowser& OpenTabsDesk::chromium() {
    return shared("chromium", "/usr/bin/chromium");
}

RealBrowser& OpenTabsDesk::brave() {
    return shared("brave", braveInstallation().program());
}

std::unique_ptr<ChromiumSession> OpenTabsDesk::unconnectedBrave() {
    sharedBrowsers().erase("brave");
    ChromiumOptions options{BRINMOOR_HOST, BRINMOOR_EXTENSION, titledPage};
    options.connected = false;
    options.program = braveInstallation().program();
    auto session = std::make_unique<ChromiumSession>(std::move(options));
    EXPECT_TRUE(session->start({"http://start.test/stranger"}, {"--class=brave"}));
    return session;
}

void endSharedBrowsers() {
    sharedBrowsers().clear();
}

TabCleanupReadResult OpenTabsDesk::read() {
    std::optional<TabCleanupReadResult> result;
    auto task = [&]() -> QCoro::Task<> {
        auto reading = co_await cleanup.readTabs();
        result = std::move(reading);
    };
    task();
    EXPECT_TRUE(waitUntil([&] { return result.has_value(); }, scriptLimit));
    return result.value_or(TabCleanupReadResult{});
}

TabCleanupCloseResult OpenTabsDesk::close(std::vector<BrowserTabSnapshot> tabs) {
    std::optional<TabCleanupCloseResult> result;
    auto task = [&]() -> QCoro::Task<> {
        auto closing = co_await cleanup.close(std::move(tabs));
        result = std::move(closing);
    };
    task();
    EXPECT_TRUE(waitUntil([&] { return result.has_value(); }, scriptLimit));
    return result.value_or(TabCleanupCloseResult{});
}

void OpenTabsDesk::refresh() {
    search.refresh();
    EXPECT_TRUE(waitUntil([&] { return !search.loading(); }, scriptLimit));
}

std::vector<OpenBrowserTab> OpenTabsDesk::found(const std::string& query) {
    search.setQuery(query);
    return search.results();
}

bool OpenTabsDesk::switchedTo(const OpenBrowserTab& tab) {
    bool closed = false;
    search.close = [&] { closed = true; };
    search.activate(tab);
    EXPECT_TRUE(waitUntil([&] { return !search.switching(); }, scriptLimit));
    search.close = nullptr;
    return closed;
}

} // namespace brinmoor::testing
