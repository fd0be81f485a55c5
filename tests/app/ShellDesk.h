#pragma once

#include "app/AppDelegate.h"
#include "tests/app/Desk.h"

#include <algorithm>

namespace brinmoor::testing {

/// A window that only takes down what happens to it.
class PaperPanel final : public Panel {
public:
    PaperPanel(std::string named, std::vector<std::string>& log, std::vector<PaperPanel*>& alive)
        : title(std::move(named)), log_(log), alive_(alive) {
        alive_.push_back(this);
    }
    ~PaperPanel() override { std::erase(alive_, this); }

    void makeKeyAndOrderFront() override {
        visible = true;
        ++keyed;
        log_.push_back("key " + title);
    }
    void orderFrontRegardless() override {
        visible = true;
        log_.push_back("front " + title);
    }
    void orderOut() override { visible = false; }
    [[nodiscard]] bool isVisible() const override { return visible; }
    [[nodiscard]] PanelSize size() const override { return {380, 80}; }
    void setOrigin(PanelPoint at) override { origin = at; }
    void center() override { ++centered; }

    std::string title;
    bool visible = false;
    int keyed = 0;
    int centered = 0;
    std::optional<PanelPoint> origin;

private:
    std::vector<std::string>& log_;
    std::vector<PaperPanel*>& alive_;
};

class PaperPanels final : public Panels {
public:
    std::unique_ptr<Panel> libraryWindow(AppModel&) override { return make("library"); }
    std::unique_ptr<Panel> captureEditor(AppModel&, const CaptureDraft&,
                                         const std::string& title) override {
        return make(title);
    }
    std::unique_ptr<Panel> tabSelection(AppModel&, Uuid, const std::string& title) override {
        return make(title);
    }
    std::unique_ptr<Panel> tabSearch(AppModel&) override { return make("tab search"); }
    std::unique_ptr<Panel> notice(const CaptureNotice& notice, NoticeActions given) override {
        actions = std::move(given);
        return make(notice.title);
    }
    [[nodiscard]] std::vector<PanelScreen> screens() const override { return screenList; }
    [[nodiscard]] PanelPoint pointer() const override { return pointerAt; }
    [[nodiscard]] bool applicationIsActive() const override { return active; }
    [[nodiscard]] bool canPerform(WindowCommand command) const override {
        return command != WindowCommand::undoText || textCanUndo;
    }
    void perform(WindowCommand command) override { performed.push_back(command); }
    void setMainMenu(std::vector<Menu> menus) override {
        log.push_back("menus");
        mainMenu = std::move(menus);
    }
    void setStatusItem(Menu menu) override {
        log.push_back("status item");
        statusMenu = std::move(menu);
    }
    void announce(Panel&, const std::string& text) override { announced.push_back(text); }
    void setAppearance(AppAppearance appearance) override {
        log.push_back(appearance == AppAppearance::cream ? "cream" : "black");
    }

    [[nodiscard]] PaperPanel* named(const std::string& title) const {
        const auto found = std::ranges::find(alive, title, &PaperPanel::title);
        return found == alive.end() ? nullptr : *found;
    }
    [[nodiscard]] long count(const std::string& title) const {
        return std::ranges::count(alive, title, &PaperPanel::title);
    }

    std::vector<std::string> log;
    std::vector<PaperPanel*> alive;
    std::vector<PanelScreen> screenList{
        {.frame = {{0, 0}, {1000, 800}}, .visibleFrame = {{0, 30}, {1000, 770}}},
        {.frame = {{1000, 0}, {1600, 900}}, .visibleFrame = {{1000, 0}, {1500, 900}}}};
    PanelPoint pointerAt{10, 10};
    bool active = true;
    std::vector<std::string> announced;
    bool textCanUndo = false;
    std::vector<WindowCommand> performed;
    std::vector<Menu> mainMenu;
    Menu statusMenu;
    NoticeActions actions;

private:
    std::unique_ptr<Panel> make(std::string title) {
        log.push_back("make " + title);
        return std::make_unique<PaperPanel>(std::move(title), log, alive);
    }
};

/// The shell over paper windows.
class ShellDesk : public Desk {
protected:
    AppDelegate& shell() {
        if (!shell_) {
            shell_ = std::make_unique<AppDelegate>(parts(), panels);
            shell_->launch();
        }
        return *shell_;
    }
    void endShell() { shell_.reset(); }
    AppModel& shellModel() { return *shell().model(); }
    void pressIn(CaptureAction action) {
        shellModel().capture(action);
        settle();
    }
    void notice(const std::string& title, bool isError = false) {
        shellModel().notify({.id = clock.newUuid(),
                             .title = title,
                             .message = "Message.",
                             .isError = isError,
                             .clipboardURL = {}});
        settle();
    }

    PaperPanels panels;

private:
    std::unique_ptr<AppDelegate> shell_;
};

// The launch.

} // namespace brinmoor::testing
