#pragma once

#include "screens/SiteIconSource.h"

#include <QImage>
#include <QObject>
#include <QQuickPaintedItem>
#include <QString>

#include <memory>

namespace brinmoor {

/// Where the screens of an engine get the icons of sites. Without a source there are none. Main
/// thread.
class SiteIcons final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Every tile that is shown asks anew.
    void setSource(SiteIconSource source);
    [[nodiscard]] const SiteIconSource& source() const noexcept { return source_; }

Q_SIGNALS:
    void sourceChanged();

private:
    SiteIconSource source_;
};

/// Those of an engine.
[[nodiscard]] SiteIcons& siteIconsOf(QQmlEngine& engine);

/// The icon of a page's site, fitted into the item with rounded corners; nothing where there is
/// none. A later address replaces an earlier one, whatever arrives when.
class SiteIconShape : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    /// Empty: no icon is asked for.
    Q_PROPERTY(QString page MEMBER page_ WRITE setPage NOTIFY pageChanged FINAL)
    Q_PROPERTY(QString hint MEMBER hint_ WRITE setHint NOTIFY hintChanged FINAL)
    Q_PROPERTY(bool loaded READ isLoaded NOTIFY loadedChanged FINAL)

public:
    static constexpr int cornerRadius = 5;

    explicit SiteIconShape(QQuickItem* parent = nullptr);
    ~SiteIconShape() override;

    void setPage(const QString& page);
    void setHint(const QString& hint);
    [[nodiscard]] bool isLoaded() const noexcept { return !image_.isNull(); }

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void pageChanged();
    void hintChanged();
    void loadedChanged();

protected:
    void componentComplete() override;
    void updatePolish() override;

private:
    struct Request;

    void askLater();
    void ask();
    void setImage(QImage image);
    static QCoro::Task<> load(std::shared_ptr<Request> request, SiteIconSource source);

    SiteIcons* icons_ = nullptr;
    QString page_;
    QString hint_;
    QImage image_;
    std::shared_ptr<Request> request_;
};

} // namespace brinmoor
