#include "screens/TabSearchPanel.h"

#include "core/text/Wording.h"
#include "screens/Desktop.h"
#include "screens/TabSearchScreen.h"

#include <QQuickItem>

namespace brinmoor {

namespace {

/// Room for a shadow that is 56 soft and falls 18.
constexpr int shadowSpread = 76;
constexpr int cornerRadius = 20;

} // namespace

TabSearchPanel::TabSearchPanel(QQmlEngine& engine, TabSearchModel& search)
    : QuickPanel(engine, PanelKind::card, QString::fromStdString(text::worded("Search open tabs"))),
      margin_(Desktop::showsThroughWindows() ? shadowSpread : 0) {
    view().setColor(Qt::transparent);
    auto* screen = new TabSearchScreen(search, &view());
    connect(screen, &TabSearchScreen::cancelled, this, [this] { close(); });
    load(QStringLiteral("TabSearchView"), {{QStringLiteral("screen"), QVariant::fromValue(screen)},
                                           {QStringLiteral("shadowSpread"), margin_}});
    connect(&view(), &QWindow::activeChanged, this, [this] { followKeyboard(); });
}

void TabSearchPanel::makeKeyAndOrderFront() {
    view().create();
    cutOut(cornerRadius);
    QMetaObject::invokeMethod(view().rootObject(), "begin");
    QuickPanel::makeKeyAndOrderFront();
}

void TabSearchPanel::followKeyboard() {
    if (view().isVisible() && !view().isActive() && !Desktop::keepsKeyboard(view()))
        orderOut();
}

} // namespace brinmoor
