#include "core/library/LibraryFile.h"
#include "tests/soak/Books.h"
#include "tests/soak/Worker.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <random>
#include <thread>

namespace brinmoor::testing {
namespace {

constexpr std::size_t linksAtStart = 10'000;
constexpr int commands = 2'000;
constexpr std::size_t linksOfABackup = 3;

/// A command and what it does to the books.
struct Command {
    std::string line;
    std::function<void(Books&)> enter;
};

class Soak {
public:
    explicit Soak(std::uint64_t seed) : random_(seed) {
        Library library;
        for (std::size_t place = 0; place < linksAtStart; ++place)
            library.links.push_back(freshLink());
        EXPECT_TRUE(LibraryFile(path()).save(library).ok());
        books_.entries = entriesOf(library);
        start();
    }

    /// One command: mostly to its end, now and then with a fault or a crash.
    void step() {
        if (oneIn(25))
            toggleFault();
        const Command command = next();
        worker_->send(command.line);
        if (oneIn(40))
            crash(command);
        else
            finish(command);
        if (oneIn(150))
            restart();
    }

    void end() {
        restart();
        EXPECT_GT(crashes, 10);
        EXPECT_GT(refused, 50);
        EXPECT_GT(done, commands / 2);
    }

    int crashes = 0;
    int refused = 0;
    int done = 0;

private:
    [[nodiscard]] std::string path() const { return folder_.path("library.json"); }
    [[nodiscard]] std::size_t below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
    }
    bool oneIn(std::size_t many) { return below(many) == 0; }
    std::string tag() { return "tag" + std::to_string(below(12)); }
    const std::string& anyID() { return books_.entries[below(books_.entries.size())].id; }

    Uuid uuid() {
        Uuid made;
        for (auto& byte : made.bytes)
            byte = static_cast<std::uint8_t>(below(256));
        return made;
    }
    std::string freshURL() { return "https://site" + std::to_string(++urls_) + ".example/a/page"; }
    SavedLink freshLink() {
        SavedLink link(freshURL(), "Title " + std::to_string(urls_), "Chromium", "Inbox", uuid(),
                       Instant{static_cast<double>(urls_)});
        link.tags = oneIn(3) ? std::vector<std::string>{tag()} : std::vector<std::string>{};
        return link;
    }
    std::set<std::string> someIDs() {
        std::set<std::string> ids;
        for (std::size_t count = 1 + below(5); count > 0; --count)
            ids.insert(anyID());
        return ids;
    }
    static std::string joined(const std::set<std::string>& ids) {
        std::string text;
        for (const std::string& id : ids)
            text += (text.empty() ? "" : ",") + id;
        return text;
    }

    Command next() {
        switch (below(13)) {
        case 0:
        case 1:
            return archive(true);
        case 2:
            return archive(false);
        case 3:
            return {"undoArchive", [](Books& books) { books.undoArchive(); }};
        case 4:
            return empty();
        case 5:
            return remove();
        case 6:
            return {"undo", [](Books& books) { books.undo(); }};
        case 7:
            return oneIn(2) ? renameTag() : deleteTag();
        case 8:
            return update();
        case 9:
            return favorite();
        case 10:
            return label();
        case 11:
            return add();
        default:
            return import();
        }
    }

    Command archive(bool archived) {
        const auto ids = someIDs();
        return {(archived ? "archive\t" : "restore\t") + joined(ids),
                [=](Books& books) { books.archive(archived, ids); }};
    }
    Command empty() {
        const auto ids = someIDs();
        return {"empty\t" + joined(ids), [=](Books& books) { books.empty(ids); }};
    }
    Command remove() {
        const auto id = anyID();
        return {"delete\t" + id, [=](Books& books) { books.remove(id); }};
    }
    Command renameTag() {
        const auto old = tag();
        const auto to = tag();
        return {"renameTag\t" + old + "\t" + to, [=](Books& books) { books.renameTag(old, to); }};
    }
    Command deleteTag() {
        const auto gone = tag();
        return {"deleteTag\t" + gone, [=](Books& books) { books.deleteTag(gone); }};
    }
    Command update() {
        const auto id = anyID();
        const auto title = "Edited " + std::to_string(below(1000));
        const std::string note = oneIn(2) ? "" : "Note " + std::to_string(below(1000));
        const std::vector<std::string> tags{tag(), tag()};
        return {"update\t" + id + "\t" + title + "\t" + (note.empty() ? "-" : note) + "\t" +
                    tags[0] + "," + tags[1],
                [=](Books& books) { books.update(id, title, note, tags); }};
    }
    Command favorite() {
        const auto id = anyID();
        return {"favorite\t" + id, [=](Books& books) { books.favorite(id); }};
    }
    Command label() {
        const auto id = anyID();
        const std::array<std::string, 3> labels{"", "important", "notNeeded"};
        const auto chosen = labels.at(below(3));
        return {"label\t" + id + "\t" + (chosen.empty() ? "none" : chosen),
                [=](Books& books) { books.label(id, chosen); }};
    }
    Command add() {
        const bool isKnown = oneIn(4);
        const auto url = isKnown ? books_.entries[below(books_.entries.size())].url : freshURL();
        return {"add\t" + url + "\tAdded", [=](Books& books) {
                    books.add({Entry{"", url, "Added", "", {}, false, false, ""}});
                }};
    }
    Command import() {
        Library backup;
        for (std::size_t count = 0; count < linksOfABackup; ++count)
            backup.links.push_back(freshLink());
        if (oneIn(2))
            backup.links.front().url = books_.entries.front().url;
        const auto file = folder_.path("backup.json");
        EXPECT_TRUE(LibraryFile(file).save(backup).ok());
        return {"import\t" + file, [=](Books& books) { books.add(entriesOf(backup)); }};
    }

    void start() {
        worker_ = std::make_unique<Worker>(path());
        EXPECT_TRUE(worker_->receive());
        isFaulty_ = false;
        books_.forgetUndo();
    }
    void toggleFault() {
        isFaulty_ = !isFaulty_;
        worker_->send(std::string("fail\t") + (isFaulty_ ? (oneIn(2) ? "size" : "open") : "never"));
        EXPECT_TRUE(worker_->receive());
    }
    void finish(const Command& command) {
        const auto answer = worker_->receive();
        ASSERT_TRUE(answer) << command.line;
        if (answer->failed) {
            EXPECT_TRUE(isFaulty_) << command.line;
            ++refused;
            return;
        }
        ++done;
        command.enter(books_);
        // The ids of what is new are the program's own.
        for (std::size_t place = 0; place < answer->newest.size(); ++place)
            books_.entries.at(place).id = answer->newest[place];
    }
    /// Killed at any moment: the file holds what was there before the command, or after it.
    void crash(const Command& command) {
        std::this_thread::sleep_for(std::chrono::microseconds(below(40'000)));
        worker_->kill();
        ++crashes;
        const Entries held = entriesOf(LibraryFile(path()).load().value());
        if (!sameButForIds(held, books_.entries)) {
            command.enter(books_);
            ASSERT_TRUE(sameButForIds(held, books_.entries)) << command.line;
        }
        books_.entries = held;
        start();
    }
    void restart() {
        worker_->kill();
        ASSERT_EQ(entriesOf(LibraryFile(path()).load().value()), books_.entries);
        start();
    }

    std::mt19937_64 random_;
    ScratchFolder folder_;
    Books books_;
    std::unique_ptr<Worker> worker_;
    std::size_t urls_ = 0;
    bool isFaulty_ = false;
};

TEST(Soak, theFileHoldsExactlyWhatTheSuccessfulCommandsSay) {
    const auto seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    Soak soak(seed);
    for (int count = 0; count < commands && !::testing::Test::HasFatalFailure(); ++count)
        soak.step();
    if (!::testing::Test::HasFatalFailure())
        soak.end();
}

} // namespace
} // namespace brinmoor::testing
