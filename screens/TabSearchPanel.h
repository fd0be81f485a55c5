#pragma once

#include "screens/QuickPanel.h"

namespace brinmoor {

class TabSearchModel;

/// The search of open tabs: a card of its own that goes as soon as the keyboard is elsewhere.
class TabSearchPanel final : public QuickPanel {
    Q_OBJECT

public:
    TabSearchPanel(QQmlEngine& engine, TabSearchModel& search);

    void makeKeyAndOrderFront() override;

protected:
    [[nodiscard]] int margin() const override { return margin_; }

private:
    void followKeyboard();

    int margin_ = 0;
};

} // namespace brinmoor
