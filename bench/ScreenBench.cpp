// The library window: how long until its first frame, how long from a key to the painted result and
// from a turn of the wheel to the next frame, and what it takes of memory at rest. Rounds of every
// size are mixed in one run, medians compared.

#include "app/AppModel.h"
#include "bench/SampleLinks.h"
#include "core/search/FilteredLibrary.h"
#include "core/text/Fold.h"
#include "screens/QuickPanel.h"
#include "screens/QuickPanels.h"
#include "tests/support/MadeUpParts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QProcess>
#include <QWheelEvent>

#include <algorithm>
#include <cstdio>
#include <map>

namespace brinmoor {
namespace {

constexpr int rounds = 9;
constexpr int turns = 60;
constexpr std::size_t sizes[]{0, 1000, 10000};
/// Typed one after the other: the first keys still leave most of the library.
constexpr QLatin1String typed("design tool");

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values.empty() ? 0 : values[values.size() / 2];
}

/// A library in a file of its own, and the window that shows it.
class Window : testing::MadeUpParts {
public:
    explicit Window(std::size_t links) {
        clock.present = {794404800};
        preferences.set("hasSeenUsageNotice", true);
        preferences.set("hasCompletedOnboarding", true);
        Library library;
        library.links = sampleLinks(links);
        if (!LibraryFile(path()).save(library).ok())
            qFatal("The library can't be written.");
    }
    ~Window() {
        panel_.reset();
        model_.reset();
    }

    /// Milliseconds from reading the file to the first frame.
    double show() {
        QElapsedTimer timer;
        timer.start();
        model_ = std::make_unique<AppModel>(partsFor(path()));
        panels_ = std::make_unique<QuickPanels>();
        panel_ = panels_->libraryWindow(*model_);
        const double shown = untilFrame([&] { panel_->makeKeyAndOrderFront(); }, timer);
        return shown;
    }
    /// Milliseconds from each key to the frame with its result.
    std::vector<double> type() {
        model_->focusSearch();
        testing::settle();
        std::vector<double> times;
        for (const QChar character : QString(typed)) {
            QElapsedTimer timer;
            timer.start();
            times.push_back(untilFrame([&] { press(character); }, timer));
        }
        if (model_->view().query != typed.toString().toStdString())
            qFatal("The keys didn't reach the search field.");
        return times;
    }
    /// Milliseconds from each turn of the wheel to the frame that shows it, over many screens of
    /// rows.
    std::vector<double> scroll() {
        testing::settle();
        std::vector<double> times;
        for (int turn = 0; turn < turns; ++turn) {
            QElapsedTimer timer;
            timer.start();
            times.push_back(untilFrame([&] { turnWheel(); }, timer));
        }
        return times;
    }
    /// How long the list itself takes for the same keys, without drawing.
    std::vector<double> search() const {
        std::vector<double> times;
        FilteredLibrary filtered;
        for (qsizetype length = 1; length <= typed.size(); ++length) {
            LibraryFilter view;
            view.query = typed.toString().left(length).toStdString();
            QElapsedTimer timer;
            timer.start();
            const auto days = filtered.days(view, model_->currentLibrary(), clock.now(), "UTC");
            times.push_back(double(timer.nsecsElapsed()) / 1e6);
        }
        return times;
    }

private:
    [[nodiscard]] std::string path() const { return folder_.path("library.json"); }
    QQuickView& view() { return dynamic_cast<QuickPanel&>(*panel_).view(); }

    void press(QChar character) {
        QKeyEvent down(QEvent::KeyPress, character.toUpper().unicode(), Qt::NoModifier, character);
        QCoreApplication::sendEvent(&view(), &down);
        QKeyEvent up(QEvent::KeyRelease, character.toUpper().unicode(), Qt::NoModifier, character);
        QCoreApplication::sendEvent(&view(), &up);
    }
    void turnWheel() {
        const QPointF place(view().width() / 2.0, view().height() / 2.0);
        QWheelEvent turn(place, view().mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        // How fast the wheel turns is told by its events' times.
        turn.setTimestamp(quint64(QDateTime::currentMSecsSinceEpoch()));
        QCoreApplication::sendEvent(&view(), &turn);
    }
    template <class Work>
    double untilFrame(Work work, const QElapsedTimer& timer) {
        bool painted = false;
        const auto connection = QObject::connect(&view(), &QQuickWindow::frameSwapped, &view(),
                                                 [&] { painted = true; });
        work();
        if (!testing::waitUntil([&] { return painted; }))
            qFatal("No frame comes.");
        QObject::disconnect(connection);
        return double(timer.nsecsElapsed()) / 1e6;
    }

    testing::TemporaryFolder folder_;
    std::unique_ptr<AppModel> model_;
    std::unique_ptr<QuickPanels> panels_;
    std::unique_ptr<Panel> panel_;
};

double memoryInUse() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toDouble() / 1024;
    return 0;
}

/// In a process of its own, which has done nothing else before.
double memoryAtRest(std::size_t links) {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--rest"), QString::number(links)});
    child.waitForFinished(60000);
    return child.readAllStandardOutput().trimmed().toDouble();
}

void rest(std::size_t links) {
    Window window(links);
    window.show();
    static_cast<void>(testing::waitUntil([] { return false; }, std::chrono::milliseconds(1000)));
    std::printf("%.1f\n", memoryInUse());
}

void compare() {
    std::map<std::size_t, std::vector<double>> frames;
    std::map<std::size_t, std::vector<double>> keys;
    std::map<std::size_t, std::vector<double>> lists;
    std::map<std::size_t, std::vector<double>> scrolls;
    Window(0).show(); // what is done once in a process
    for (int round = 0; round < rounds; ++round)
        for (const std::size_t size : sizes) {
            Window window(size);
            frames[size].push_back(window.show());
            if (size > 0)
                for (const double time : window.scroll())
                    scrolls[size].push_back(time);
            for (const double time : window.type())
                keys[size].push_back(time);
            for (const double time : window.search())
                lists[size].push_back(time);
        }
    std::printf("%-34s %8s %10s %10s\n", "", "links", "ratio to 0", "ms");
    for (const std::size_t size : sizes)
        std::printf("%-34s %8zu %10.2f %10.1f\n", "file to first frame", size,
                    median(frames[size]) / median(frames[0]), median(frames[size]));
    for (const std::size_t size : sizes)
        std::printf("%-34s %8zu %10.2f %10.1f (longest %.1f)\n", "key to painted result", size,
                    median(keys[size]) / median(keys[0]), median(keys[size]),
                    std::ranges::max(keys[size]));
    std::printf("%-34s %8zu %10s %10.2f (longest %.2f)\n", "of these, finding and ordering",
                sizes[2], "", median(lists[sizes[2]]), std::ranges::max(lists[sizes[2]]));
    for (const std::size_t size : {sizes[1], sizes[2]})
        std::printf("%-34s %8zu %10s %10.1f (longest %.1f)\n", "turn of the wheel to next frame",
                    size, "", median(scrolls[size]), std::ranges::max(scrolls[size]));
    const double empty = memoryAtRest(0);
    for (const std::size_t size : sizes) {
        const double used = size == 0 ? empty : memoryAtRest(size);
        std::printf("%-34s %8zu %10.2f %10.1f MiB\n", "memory at rest", size, used / empty, used);
    }
}

} // namespace
} // namespace brinmoor

int main(int count, char** arguments) {
    const QGuiApplication application(count, arguments);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    brinmoor::text::setUserLocale("en_US");
    if (count == 3 && std::string_view(arguments[1]) == "--rest")
        brinmoor::rest(std::strtoul(arguments[2], nullptr, 10));
    else
        brinmoor::compare();
    return 0;
}
