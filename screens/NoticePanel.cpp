#include "screens/NoticePanel.h"

#include "core/text/Wording.h"
#include "screens/Desktop.h"
#include "screens/NoticeContent.h"

#include <QQuickItem>

namespace brinmoor {

namespace {

/// Room for a shadow that is 24 soft and falls 8.
constexpr int shadowSpread = 32;
constexpr int cornerRadius = 16;

} // namespace

NoticePanel::NoticePanel(QQmlEngine& engine, const CaptureNotice& notice, NoticeActions actions)
    : QuickPanel(engine, PanelKind::notice,
                 QString::fromStdString(text::worded("Brinmoor notification"))),
      margin_(Desktop::showsThroughWindows() ? shadowSpread : 0) {
    view().setColor(Qt::transparent);
    auto* content = new NoticeContent(notice, std::move(actions), &view());
    load(QStringLiteral("CaptureNoticeView"),
         {{QStringLiteral("notice"), QVariant::fromValue(content)},
          {QStringLiteral("shadowSpread"), margin_}});
    if (QQuickItem* root = view().rootObject())
        connect(root, SIGNAL(gone()), this, SLOT(hideView()));
}

void NoticePanel::orderFrontRegardless() {
    shown_ = true;
    view().create();
    cutOut(cornerRadius);
    QuickPanel::orderFrontRegardless();
    if (QQuickItem* root = view().rootObject())
        QMetaObject::invokeMethod(root, "enter");
}

void NoticePanel::orderOut() {
    if (!shown_)
        return;
    shown_ = false;
    if (QQuickItem* root = view().rootObject())
        QMetaObject::invokeMethod(root, "leave");
}

void NoticePanel::hideView() {
    if (!shown_)
        QuickPanel::orderOut();
}

} // namespace brinmoor
