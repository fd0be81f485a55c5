#pragma once

#include "platform/Subscription.h"
#include "screens/AppRoot.h"
#include "screens/QuickPanel.h"

#include <QTimer>

namespace brinmoor {

class Preferences;

/// The library window. It keeps its frame between runs and follows the model.
class LibraryPanel final : public QuickPanel {
    Q_OBJECT

public:
    LibraryPanel(QQmlEngine& engine, AppModel& model);
    ~LibraryPanel() override;

    void makeKeyAndOrderFront() override;
    void orderOut() override;

private:
    void follow();
    void showLinks();
    void showHint();
    void restoreFrame();
    void saveFrame();
    void refreshDays();

    AppModel& model_;
    AppRoot* root_;
    LibraryScreen* screen_;
    QTimer frameSettled_;
    Subscription nextMinute_;
};

} // namespace brinmoor
