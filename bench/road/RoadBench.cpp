// How long one save takes, from the key press to the renamed file and to the visible notice, and
// what it is made of. Real keys, a real Chromium, libraries of 1,000 and 10,000 links:
//     scripts/in-desktop build/bench/bin/RoadBench

#include "app/AppDelegate.h"
#include "bench/SampleLinks.h"
#include "main/RealParts.h"
#include "platform/HotKeys.h"
#include "screens/QuickPanels.h"
#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Waiting.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace brinmoor;
using namespace brinmoor::testing;
using Time = std::chrono::steady_clock::time_point;

constexpr int rounds = 21;

Time now() {
    return std::chrono::steady_clock::now();
}

double milliseconds(Time from, Time to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

/// When each step of one save was reached.
struct Steps {
    Time pressed, heard, scriptStarted, scriptEnded, adopted, told, painted;
};

/// The real runner, looked at.
class TimedScripts final : public ScriptRunner {
public:
    TimedScripts(ScriptRunner& runner, Steps& steps) : runner_(runner), steps_(steps) {}

    QCoro::Task<Result<QByteArray, CaptureFailure>> run(ScriptRun run) override {
        steps_.scriptStarted = now();
        auto result = co_await runner_.run(std::move(run));
        steps_.scriptEnded = now();
        co_return result;
    }

private:
    ScriptRunner& runner_;
    Steps& steps_;
};

QQuickWindow* noticeWindow() {
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->title() == QStringLiteral("Brinmoor notification") && window->isVisible())
            return qobject_cast<QQuickWindow*>(window);
    return nullptr;
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// The same parts with the scripts timed.
AppParts measured(const AppParts& real, ScriptRunner& timed) {
    return {.browsers = real.browsers,
            .clock = real.clock,
            .files = real.files,
            .hotKeys = real.hotKeys,
            .opener = real.opener,
            .pasteboard = real.pasteboard,
            .preferences = real.preferences,
            .scripts = timed,
            .workspace = real.workspace,
            .libraryPath = real.libraryPath,
            .account = real.account,
            .makeUsageSession = real.makeUsageSession};
}

class Road {
public:
    explicit Road(std::size_t links)
        : real_(Installation::ofThisProgram(), panels_.engine()),
          timed_(real_.parts().scripts, steps_), parts_(measured(real_.parts(), timed_)),
          shell_(parts_, panels_) {
        Library library;
        library.links = sampleLinks(links);
        if (!LibraryFile(parts_.libraryPath).save(library).ok())
            std::exit(1);
        shell_.launch();
        settle();
        watch();
    }

    Steps save(ChromiumSession& chromium, const std::string& address) {
        bring(chromium, address);
        steps_ = {};
        steps_.pressed = now();
        keyboard_.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK);
        if (!waitUntil([&] { return steps_.painted != Time(); }))
            std::exit(1);
        if (!waitUntil([&] { return !shell_.model()->isCapturing(); }))
            std::exit(1);
        shell_.toastPanel()->orderOut();
        return steps_;
    }

private:
    void watch() {
        AppModel& model = *shell_.model();
        auto heard = parts_.hotKeys.pressed;
        parts_.hotKeys.pressed = [this, heard](std::uint32_t id) {
            steps_.heard = now();
            heard(id);
        };
        QObject::connect(&model, &AppModel::libraryChanged, &model,
                         [this] { steps_.adopted = now(); });
        auto show = model.showToast;
        model.showToast = [this, show](const CaptureNotice& notice) {
            steps_.told = now();
            show(notice);
            if (QQuickWindow* window = noticeWindow())
                QObject::connect(window, &QQuickWindow::frameSwapped, window, [this] {
                    if (steps_.painted == Time())
                        steps_.painted = now();
                });
        };
    }

    void bring(ChromiumSession& chromium, const std::string& address) {
        (void)chromium.openTab(address);
        if (!waitUntil([&] { return inFront(chromium.process()); }))
            std::exit(1);
        // A page that somebody saves has been looked at: the browser has drawn it long ago.
        (void)waitUntil([] { return false; }, std::chrono::milliseconds(700));
    }

    bool inFront(std::int32_t process) {
        const auto front = parts_.workspace.frontmostApplication();
        if (front && front->processIdentifier == process)
            return true;
        for (const auto& application : parts_.workspace.runningApplications())
            if (application.processIdentifier == process)
                parts_.workspace.activate(application);
        return false;
    }

    Steps steps_;
    QuickPanels panels_;
    RealParts real_;
    TimedScripts timed_;
    AppParts parts_;
    AppDelegate shell_;
    TestKeyboard keyboard_;
};

void report(std::size_t links, const std::vector<Steps>& all) {
    struct Row {
        const char* name;
        Time Steps::*from;
        Time Steps::*to;
    };
    static constexpr std::array table{
        Row{"key press to renamed file", &Steps::pressed, &Steps::adopted},
        Row{"key press to visible notice", &Steps::pressed, &Steps::painted},
        Row{"  key press heard", &Steps::pressed, &Steps::heard},
        Row{"  browser chosen, script ready", &Steps::heard, &Steps::scriptStarted},
        Row{"  script tool and page", &Steps::scriptStarted, &Steps::scriptEnded},
        Row{"  tags, insert, write, adopt", &Steps::scriptEnded, &Steps::adopted},
        Row{"  model to shell", &Steps::adopted, &Steps::told},
        Row{"  notice made and painted", &Steps::told, &Steps::painted}};
    std::printf("\n%zu links, median of %zu saves\n", links, all.size());
    for (const Row& row : table) {
        std::vector<double> values;
        for (const Steps& steps : all)
            values.push_back(milliseconds(steps.*row.from, steps.*row.to));
        std::printf("%-34s %7.1f ms\n", row.name, median(values));
    }
}

} // namespace

int main(int count, char** arguments) {
    const QGuiApplication application(count, arguments);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const Installation installation = Installation::ofThisProgram();
    ChromiumSession chromium({.nativeHost = installation.browserHost.toStdString(),
                              .extensionFolder = BRINMOOR_EXTENSION_FOLDER,
                              .pages = [](const testing::HttpRequest& request) {
                                  return HttpAnswer{
                                      .body = "<!doctype html><title>A page</title><meta "
                                              "property=\"og:title\" content=\"Page " +
                                              request.path + " of machine learning notes\">"};
                              }});
    if (!chromium.start({"http://start.test/"}))
        return 1;
    for (const std::size_t links : {std::size_t{1000}, std::size_t{10000}}) {
        Road road(links);
        std::vector<Steps> all;
        for (int round = 0; round <= rounds; ++round) {
            const std::string page = std::to_string(links) + "/" + std::to_string(round);
            const Steps steps = road.save(chromium, "http://bench.test/" + page);
            if (round > 0) // the first one warms what a running program has warm
                all.push_back(steps);
        }
        report(links, all);
        std::filesystem::remove(systemPlaces().libraryFile);
    }
    return 0;
}
