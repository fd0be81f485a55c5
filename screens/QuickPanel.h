#pragma once

#include "app/Panels.h"

#include <QQuickView>
#include <QUrl>
#include <QVariantMap>

#include <memory>

namespace brinmoor {

/// What kind of window a panel is to the desktop.
enum class PanelKind {
    window,    ///< an ordinary one
    selection, ///< above the others, on every desktop; with it the user turns to the application
    floating,  ///< the same, but the user stays with what was in front
    card,      ///< floating without a frame: the screen draws its own edge
    notice,    ///< a passing message
};

/// Whether a window of this kind makes the application the active one when it has the keyboard.
[[nodiscard]] constexpr bool activates(PanelKind kind) noexcept {
    return kind == PanelKind::window || kind == PanelKind::selection;
}

/// A window with one screen in it. What the screen needs is a child of the view, so that both go
/// together.
class QuickPanel : public QObject, public Panel {
    Q_OBJECT

public:
    QuickPanel(QQmlEngine& engine, PanelKind kind, const QString& title);
    ~QuickPanel() override;

    [[nodiscard]] QQuickView& view() noexcept { return *view_; }
    [[nodiscard]] const QQuickView& view() const noexcept { return *view_; }
    [[nodiscard]] PanelKind kind() const noexcept { return kind_; }
    /// Fills the window with a screen of the module; `needs` are its required properties.
    void load(const QString& screen, const QVariantMap& needs);
    /// Takes the window away and says so, as if the user had closed it by its title bar.
    void close();

    void makeKeyAndOrderFront() override;
    void orderFrontRegardless() override;
    void orderOut() override;
    [[nodiscard]] bool isVisible() const override { return view_->isVisible(); }
    [[nodiscard]] PanelSize size() const override;
    void setOrigin(PanelPoint origin) override;
    void center() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// How far the window reaches beyond its content on each side.
    [[nodiscard]] virtual int margin() const { return 0; }
    /// Makes the window's shape that of its content: with a margin the rest of the window lets
    /// clicks through, without one the corners are cut off.
    void cutOut(int cornerRadius);

private:
    /// A panel may go while one of its own buttons is being pressed.
    struct DeletedLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    void prepare();
    void tellClosed();

    PanelKind kind_;
    std::unique_ptr<QQuickView, DeletedLater> view_;
};

} // namespace brinmoor
