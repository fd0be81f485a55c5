#pragma once

#include "screens/QuickPanel.h"

#include <QTimer>

namespace brinmoor {

class AppModel;
class ShellMenus;

/// The library window. It keeps its frame between runs.
class LibraryPanel final : public QuickPanel {
    Q_OBJECT

public:
    LibraryPanel(QQmlEngine& engine, AppModel& model, ShellMenus& menus);
    ~LibraryPanel() override;

    void makeKeyAndOrderFront() override;
    void orderOut() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restoreFrame();
    void saveFrame();

    AppModel& model_;
    QTimer frameSettled_;
};

} // namespace brinmoor
