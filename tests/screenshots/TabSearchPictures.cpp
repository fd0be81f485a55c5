#include "browser/TabSearchModel.h"
#include "screens/QuickPanel.h"
#include "tests/screenshots/Studio.h"
#include "tests/support/TabRecords.h"

namespace brinmoor {

namespace {

using testing::CannedScripts;

/// What a browser with the sample's pages open says.
QByteArray openTabs() {
    std::vector<testing::PretendedTab> tabs;
    for (const SavedLink& link : sampleLibrary().links)
        tabs.push_back({link.url, link.title, 1, int(tabs.size()) + 1});
    for (int number = 1; number < 28; ++number)
        tabs.push_back({"https://harbourline.co/" + std::to_string(number),
                        "Ferry times, week " + std::to_string(number), 2, number});
    return testing::tabList("org.chromium.Chromium", tabs);
}

} // namespace

void takeTabSearch(Studio& studio) {
    Desk desk({});
    desk.workspace.running = {{.bundleIdentifier = "org.chromium.Chromium",
                               .localizedName = "Chromium",
                               .processIdentifier = 42}};
    desk.scripts.answer = [](const ScriptRun&) { return CannedScripts::Answer(openTabs()); };
    desk.scripts.hold = CannedScripts::Hold::everything;
    AppModel model(desk.parts());
    TabSearchModel& search = model.tabSearch();
    const auto panel = studio.panels().tabSearch(model);
    panel->center();
    search.refresh();
    panel->makeKeyAndOrderFront();
    studio.take(*panel, QStringLiteral("tabsearch-loading"));
    desk.scripts.hold = CannedScripts::Hold::nothing;
    desk.scripts.release();
    await([&] { return !search.loading(); });
    search.move(1);
    studio.take(*panel, QStringLiteral("tabsearch-open"));
    search.setQuery("old");
    search.saveTab(search.results().front());
    await([&] { return search.message().has_value(); });
    studio.take(*panel, QStringLiteral("tabsearch-matches"));
    desk.scripts.answer = [](const ScriptRun&) { return CannedScripts::Answer("false"); };
    search.activate(search.results().front());
    await([&] { return search.messageIsFailure(); });
    studio.take(*panel, QStringLiteral("tabsearch-moved"));
    desk.scripts.answer = [](const ScriptRun&) { return CannedScripts::Answer(openTabs()); };
    search.refresh();
    search.setQuery("zeppelin");
    await([&] { return !search.loading(); });
    studio.take(*panel, QStringLiteral("tabsearch-none"));
}

} // namespace brinmoor
