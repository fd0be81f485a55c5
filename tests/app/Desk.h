#pragma once

#include "app/AppModel.h"
#include "tests/support/MadeUpParts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace brinmoor::testing {

/// A model on a desktop that the test makes up, with a library file of its own.
class Desk : public ::testing::Test, protected MadeUpParts {
protected:
    Desk() {
        workspace.running = {{.bundleIdentifier = "org.chromium.Chromium",
                              .localizedName = "Chromium",
                              .processIdentifier = 42}};
        workspace.front = workspace.running.front();
    }

    AppParts parts() { return partsFor(libraryPath()); }

    AppModel& model() {
        if (!model_) {
            model_ = std::make_unique<AppModel>(parts());
            model_->showToast = [this](const CaptureNotice& notice) { notices.push_back(notice); };
            model_->showCaptureEditor = [this](const CaptureDraft& draft) {
                editors.push_back(draft);
            };
            model_->closeCaptureEditor = [this] { ++editorsClosed; };
            model_->showTabSelection = [this](const TabSelectionDraft& draft) {
                selections.push_back(draft);
            };
            model_->closeTabSelection = [this] { ++selectionsClosed; };
            model_->dismissClipboardNotice = [this] { ++offersDismissed; };
        }
        return *model_;
    }
    void endModel() { model_.reset(); }

    [[nodiscard]] std::string libraryPath() const { return folder.path("Brinmoor/library.json"); }
    [[nodiscard]] std::string fileBytes() const { return bytesOf(libraryPath()); }

    /// Puts a document into the file before the model starts.
    void given(Library library) { ASSERT_TRUE(LibraryFile(libraryPath()).save(library).ok()); }
    void givenBytes(const std::string& bytes) {
        std::filesystem::create_directories(folder.path("Brinmoor"));
        writeBytes(libraryPath(), bytes);
    }
    /// Every write fails from here on: the file's place is taken by a folder.
    void breakWrites() {
        std::filesystem::remove_all(libraryPath());
        std::filesystem::create_directories(libraryPath() + "/in the way");
    }

    SavedLink link(std::string url, std::string title) {
        return {std::move(url), std::move(title), "Chromium",
                "Inbox",        clock.newUuid(),  clock.now()};
    }
    static Library libraryOf(std::vector<SavedLink> links) {
        Library library;
        library.links = std::move(links);
        return library;
    }

    void pageIs(const std::string& url, const std::string& title,
                const std::string& metadata = "{}") {
        tabsAre({entry(url, title, metadata)});
    }
    static std::string entry(const std::string& url, const std::string& title,
                             const std::string& metadata = "{}") {
        return R"({"url":")" + url + R"(","title":")" + title + R"(","metadata":)" + metadata +
               R"(,"closeTarget":{"windowID":"1","index":-1,"tabID":"7","url":")" + url +
               R"(","safari":false,"browserID":"org.chromium.Chromium","processID":42}})";
    }
    /// What the browser's front window holds; the identity of a tab is told only when it is asked
    /// for.
    void tabsAre(const std::vector<std::string>& entries);

    void press(CaptureAction action) {
        model().capture(action);
        settle();
    }
    bool saved(SavedLink edited) {
        bool done = false;
        bool result = false;
        auto task = [&]() -> QCoro::Task<> {
            result = co_await model().saveDraft(std::move(edited));
            done = true;
        };
        task();
        EXPECT_TRUE(waitUntil([&] { return done; }));
        return result;
    }

    /// How often the action was counted, at start too.
    [[nodiscard]] std::int64_t counted(UsageEvent event) {
        const UsageCounts& counts = model().analytics().accumulator().counts();
        const auto found = counts.find(event);
        return found == counts.end() ? 0 : found->second;
    }
    [[nodiscard]] std::pair<std::string, std::string> lastWords() const {
        return notices.empty() ? std::pair<std::string, std::string>()
                               : std::pair(notices.back().title, notices.back().message);
    }
    [[nodiscard]] std::vector<std::string> titles() {
        std::vector<std::string> found;
        for (const SavedLink& each : model().library().links)
            found.push_back(each.title);
        return found;
    }

    TemporaryFolder folder;
    std::string closeAnswer = "true";

    std::vector<CaptureNotice> notices;
    std::vector<CaptureDraft> editors;
    int editorsClosed = 0;
    std::vector<TabSelectionDraft> selections;
    int selectionsClosed = 0;
    int offersDismissed = 0;

private:
    std::unique_ptr<AppModel> model_;
};

using Words = std::pair<std::string, std::string>;

} // namespace brinmoor::testing
