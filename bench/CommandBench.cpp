// One command of the library screen at 10,000 links, all that it does included: the change, the
// write, the adoption, the undo and the new list. Beside saving the same library once.

#include "app/AppModel.h"
#include "bench/Comparisons.h"
#include "bench/SampleLinks.h"
#include "core/text/Fold.h"
#include "screens/LibraryScreen.h"
#include "tests/support/MadeUpParts.h"
#include "tests/support/TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <memory>
#include <string>

namespace brinmoor {
namespace {

constexpr std::size_t links = 10'000;

/// The model of one library, in a file of its own, and the screen that shows it.
class Shown : testing::MadeUpParts {
public:
    Shown() {
        clock.present = {794404800};
        Library library;
        library.links = sampleLinks(links);
        if (!LibraryFile(path()).save(library).ok())
            qFatal("The library can't be written.");
        model_ = std::make_unique<AppModel>(partsFor(path()));
        screen_ = std::make_unique<LibraryScreen>(*model_);
    }

    [[nodiscard]] AppModel& model() { return *model_; }
    /// In the middle of the list.
    [[nodiscard]] const SavedLink& link() const { return model_->library().links[links / 2]; }
    [[nodiscard]] std::string beside(const char* name) const { return folder_.path(name); }

private:
    [[nodiscard]] std::string path() const { return folder_.path("library.json"); }

    testing::TemporaryFolder folder_;
    std::unique_ptr<AppModel> model_;
    std::unique_ptr<LibraryScreen> screen_;
};

Shown& shown() {
    static Shown only;
    return only;
}

void save(benchmark::State& state) {
    const LibraryFile file(shown().beside("saved.json"));
    for (auto _ : state)
        if (!file.save(shown().model().library()).ok())
            state.SkipWithError("not saved");
}

void archive(benchmark::State& state) {
    AppModel& model = shown().model();
    for (auto _ : state)
        if (!model.setArchived(!shown().link().isArchived, {shown().link().id}))
            state.SkipWithError("not archived");
}

void favor(benchmark::State& state) {
    AppModel& model = shown().model();
    for (auto _ : state) {
        const bool before = shown().link().isFavorite;
        model.toggleFavorite(shown().link().id);
        if (shown().link().isFavorite == before)
            state.SkipWithError("nothing changed");
    }
}

void edit(benchmark::State& state) {
    AppModel& model = shown().model();
    int round = 0;
    for (auto _ : state) {
        SavedLink edited = shown().link();
        edited.note = "Note " + std::to_string(++round);
        model.update(edited);
        if (shown().link().note != edited.note)
            state.SkipWithError("nothing changed");
    }
}

/// Two commands.
void removeAndUndo(benchmark::State& state) {
    AppModel& model = shown().model();
    for (auto _ : state) {
        model.deleteLink(SavedLink(shown().link()));
        model.undoLastAction();
        if (model.library().links.size() != links)
            state.SkipWithError("not undone");
    }
}

void renameTag(benchmark::State& state) {
    AppModel& model = shown().model();
    // Whatever it is called by now: runs follow one another.
    std::string now = shown().link().tags.empty() ? "learning" : shown().link().tags.front();
    for (auto _ : state) {
        const std::string next = now == "Renamed" ? "Named anew" : "Renamed";
        if (!model.renameTag(now, next))
            state.SkipWithError("not renamed");
        now = next;
    }
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(save)->Unit(unit)->UseRealTime();
BENCHMARK(archive)->Unit(unit)->UseRealTime();
BENCHMARK(favor)->Unit(unit)->UseRealTime();
BENCHMARK(edit)->Unit(unit)->UseRealTime();
BENCHMARK(removeAndUndo)->Unit(unit)->UseRealTime();
BENCHMARK(renameTag)->Unit(unit)->UseRealTime();

} // namespace
} // namespace brinmoor

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    brinmoor::text::setUserLocale("en_US");
    const char* const beside = "saving it";
    return brinmoor::runComparisons(count, arguments,
                                    {{"archive or restore a link", "archive", beside, "save"},
                                     {"make it a favorite", "favor", beside, "save"},
                                     {"edit its note", "edit", beside, "save"},
                                     {"delete it and undo that", "removeAndUndo", beside, "save"},
                                     {"rename a tag", "renameTag", beside, "save"}});
}
