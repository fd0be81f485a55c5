#include "screens/QuickPanels.h"

#include "app/AppModel.h"
#include "screens/Appearance.h"
#include "screens/LibraryPanel.h"
#include "screens/LibraryTags.h"
#include "screens/NoticePanel.h"
#include "screens/QuickCaptureForm.h"
#include "screens/ScreenModule.h"
#include "screens/ShellMenu.h"
#include "screens/SiteIcons.h"
#include "screens/TabSearchPanel.h"
#include "screens/TabSelectionList.h"

#include <QAccessible>
#include <QCursor>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlProperty>
#include <QQuickItem>
#include <QScreen>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace brinmoor {

namespace {

PanelRect panelRect(const QRect& rectangle) {
    return {{rectangle.x(), rectangle.y()}, {rectangle.width(), rectangle.height()}};
}

/// What a text calls the command; nullptr for what windows do.
const char* textCommand(WindowCommand command) {
    switch (command) {
    case WindowCommand::undoText:
        return "undo";
    case WindowCommand::cut:
        return "cut";
    case WindowCommand::copy:
        return "copy";
    case WindowCommand::paste:
        return "paste";
    case WindowCommand::selectAll:
        return "selectAll";
    default:
        return nullptr;
    }
}

/// The text that has the keyboard, if one has.
QObject* focusedText() {
    QObject* focused = QGuiApplication::focusObject();
    return focused && focused->property("canUndo").isValid() ? focused : nullptr;
}

QQmlEngine& withScreens(QQmlEngine& engine) {
    registerScreens();
    return engine;
}

} // namespace

QuickPanels::QuickPanels()
    : appearance_(appearanceOf(withScreens(engine_))), menus_(new ShellMenus(&engine_)) {
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &focusContext_,
                     [this] { followFocus(); });
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &focusContext_,
                     [this] { followFocus(); });
}

QuickPanels::~QuickPanels() {
    // Windows that wait for their deletion may not outlive the engine.
    for (const auto& window : windows_)
        delete window.view.data();
}

std::unique_ptr<Panel> QuickPanels::kept(std::unique_ptr<QuickPanel> panel) {
    std::erase_if(windows_, [](const auto& window) { return window.view.isNull(); });
    windows_.push_back({&panel->view(), activates(panel->kind())});
    return panel;
}

std::unique_ptr<Panel> QuickPanels::libraryWindow(AppModel& model) {
    return kept(std::make_unique<LibraryPanel>(engine_, model, *menus_));
}

std::unique_ptr<Panel> QuickPanels::captureEditor(AppModel& model, const CaptureDraft& draft,
                                                  const std::string& title) {
    auto panel =
        std::make_unique<QuickPanel>(engine_, PanelKind::floating, QString::fromStdString(title));
    QuickCaptureActions actions{
        .save = [&model](SavedLink link) { return model.saveDraft(std::move(link)); },
        .cancel =
            [owner = QPointer(panel.get())] {
                if (owner)
                    owner->close();
            }};
    auto* form = new QuickCaptureForm(draft.link, libraryTags(model.library()), std::move(actions),
                                      &panel->view());
    panel->load(QStringLiteral("QuickCaptureView"),
                {{QStringLiteral("form"), QVariant::fromValue(form)}});
    return kept(std::move(panel));
}

std::unique_ptr<Panel> QuickPanels::tabSelection(AppModel& model, Uuid draftID,
                                                 const std::string& title) {
    auto panel =
        std::make_unique<QuickPanel>(engine_, PanelKind::selection, QString::fromStdString(title));
    TabSelectionActions actions{
        .update = [&model](UuidSet selected) { model.updateTabSelection(std::move(selected)); },
        .save = [&model] { model.saveTabSelection(); },
        .cancel =
            [owner = QPointer(panel.get())] {
                if (owner)
                    owner->close();
            }};
    auto* tabs = new TabSelectionList(draftID, std::move(actions), &panel->view());
    tabs->show(model.tabSelection());
    QObject::connect(&model, &AppModel::tabSelectionChanged, tabs,
                     [tabs, &model] { tabs->show(model.tabSelection()); });
    panel->load(QStringLiteral("TabSelectionView"),
                {{QStringLiteral("tabs"), QVariant::fromValue(tabs)}});
    return kept(std::move(panel));
}

std::unique_ptr<Panel> QuickPanels::tabSearch(AppModel& model) {
    return kept(std::make_unique<TabSearchPanel>(engine_, model.tabSearch()));
}

std::unique_ptr<Panel> QuickPanels::notice(const CaptureNotice& notice, NoticeActions actions) {
    return kept(std::make_unique<NoticePanel>(engine_, notice, std::move(actions)));
}

std::vector<PanelScreen> QuickPanels::screens() const {
    std::vector<PanelScreen> result;
    const QScreen* main = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const PanelScreen described{panelRect(screen->geometry()),
                                    panelRect(screen->availableGeometry())};
        result.insert(screen == main ? result.begin() : result.end(), described);
    }
    return result;
}

PanelPoint QuickPanels::pointer() const {
    const QPoint place = QCursor::pos();
    return {place.x(), place.y()};
}

bool QuickPanels::applicationIsActive() const {
    const QWindow* focused = QGuiApplication::focusWindow();
    return std::ranges::any_of(windows_, [&](const Window& window) {
        return window.activates && window.view == focused && focused;
    });
}

void QuickPanels::followFocus() {
    // Between two windows of its own an application stays what it is.
    if (!QGuiApplication::focusWindow() &&
        QGuiApplication::applicationState() == Qt::ApplicationActive)
        return;
    const bool was = std::exchange(active_, applicationIsActive());
    if (active_ && !was && didBecomeActive)
        didBecomeActive();
}

bool QuickPanels::canPerform(WindowCommand command) const {
    if (!textCommand(command))
        return true;
    const QObject* text = focusedText();
    return text && (command != WindowCommand::undoText || text->property("canUndo").toBool());
}

void QuickPanels::perform(WindowCommand command) {
    QWindow* window = QGuiApplication::focusWindow();
    if (const char* name = textCommand(command)) {
        if (QObject* text = focusedText())
            QMetaObject::invokeMethod(text, name);
    } else if (command == WindowCommand::quit) {
        // Asked to close, a window would only hide, and so refuse.
        QCoreApplication::exit();
    } else if (window && command == WindowCommand::closeWindow) {
        window->close();
    } else if (window) {
        window->showMinimized();
    }
}

void QuickPanels::setMainMenu(std::vector<Menu> menus) {
    menus_->set(std::move(menus));
}

void QuickPanels::setStatusItem(Menu menu) {
    statusItem_.reset();
    delete std::exchange(statusMenu_, new ShellMenu(std::move(menu), &engine_));
    showStatusItem();
}

void QuickPanels::setStatusItemShown(bool shown) {
    statusItemShown_ = shown;
    showStatusItem();
}

void QuickPanels::showStatusItem() {
    statusItem_.reset();
    if (!statusItemShown_ || !statusMenu_)
        return;
    QQmlComponent component(
        &engine_, QUrl(QStringLiteral("qrc:/qt-project.org/imports/Brinmoor/StatusItem.qml")));
    const QString drawing =
        QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                               QStringLiteral("icons/breeze/actions/16/dialog-layers.svg"));
    statusItem_.reset(component.createWithInitialProperties(
        {{QStringLiteral("entries"), QVariant::fromValue(statusMenu_)},
         {QStringLiteral("drawing"), QUrl::fromLocalFile(drawing)}}));
    if (!statusItem_)
        qWarning("No status item: %ls", qUtf16Printable(component.errorString()));
}

void QuickPanels::announce(Panel& panel, const std::string& text) {
    auto* shown = dynamic_cast<QuickPanel*>(&panel);
    QQuickItem* root = shown ? shown->view().rootObject() : nullptr;
    if (!root)
        return;
    QQmlProperty::write(root, QStringLiteral("Accessible.name"), QString::fromStdString(text),
                        qmlContext(root));
    QAccessibleEvent event(root, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void QuickPanels::setAppearance(AppAppearance appearance) {
    appearance_.setAppearance(appearance);
}

void QuickPanels::setReducedMotion(bool reduced) {
    appearance_.setReducedMotion(reduced);
}

void QuickPanels::setSiteIcons(SiteIconSource source) {
    siteIconsOf(engine_).setSource(std::move(source));
}

} // namespace brinmoor
