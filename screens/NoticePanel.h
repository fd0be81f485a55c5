#pragma once

#include "screens/QuickPanel.h"

#include <QTimer>

namespace brinmoor {

/// A passing message on a card of its own, with its shadow where the desktop can draw one.
class NoticePanel final : public QuickPanel {
    Q_OBJECT

public:
    NoticePanel(QQmlEngine& engine, const CaptureNotice& notice, NoticeActions actions);

    void orderFrontRegardless() override;
    /// The card fades; to everybody else it is gone at once.
    void orderOut() override;
    [[nodiscard]] bool isVisible() const override { return shown_; }

protected:
    [[nodiscard]] int margin() const override { return margin_; }

private Q_SLOTS:
    void hideView();

private:
    int margin_ = 0;
    bool shown_ = false;
};

} // namespace brinmoor
