#include "screens/SiteIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QQmlEngine>
#include <QQuickWindow>

namespace brinmoor {

/// What is waited for; whoever doesn't want the answer any more takes itself out of it.
struct SiteIconShape::Request {
    SiteIconShape* shape = nullptr;
    std::string page;
    std::optional<std::string> hint;
};

void SiteIcons::setSource(SiteIconSource source) {
    source_ = std::move(source);
    Q_EMIT sourceChanged();
}

SiteIcons& siteIconsOf(QQmlEngine& engine) {
    static const int type = qmlTypeId("Brinmoor", 1, 0, "SiteIcons");
    return *engine.singletonInstance<SiteIcons*>(type);
}

SiteIconShape::SiteIconShape(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

SiteIconShape::~SiteIconShape() {
    if (request_)
        request_->shape = nullptr;
}

void SiteIconShape::setPage(const QString& page) {
    if (page == page_)
        return;
    page_ = page;
    Q_EMIT pageChanged();
    askLater();
}

void SiteIconShape::setHint(const QString& hint) {
    if (hint == hint_)
        return;
    hint_ = hint;
    Q_EMIT hintChanged();
    askLater();
}

void SiteIconShape::componentComplete() {
    QQuickPaintedItem::componentComplete();
    if (QQmlEngine* engine = qmlEngine(this))
        icons_ = &siteIconsOf(*engine);
    if (icons_)
        connect(icons_, &SiteIcons::sourceChanged, this, &SiteIconShape::askLater);
    askLater();
}

void SiteIconShape::askLater() {
    // A row that stands for another link from now on changes page and hint one after the other:
    // one question, before the next frame.
    polish();
}

void SiteIconShape::updatePolish() {
    if (isComponentComplete())
        ask();
}

void SiteIconShape::ask() {
    if (request_)
        request_->shape = nullptr;
    request_.reset();
    setImage({});
    if (page_.isEmpty() || !icons_ || !icons_->source())
        return;
    request_ = std::make_shared<Request>();
    request_->shape = this;
    request_->page = page_.toStdString();
    if (!hint_.isEmpty())
        request_->hint = hint_.toStdString();
    load(request_, icons_->source());
}

QCoro::Task<> SiteIconShape::load(std::shared_ptr<Request> request, SiteIconSource source) {
    auto loading = source(request->page, request->hint);
    const auto bytes = co_await loading;
    if (request->shape && bytes)
        request->shape->setImage(QImage::fromData(*bytes));
}

void SiteIconShape::setImage(QImage image) {
    const bool wasLoaded = isLoaded();
    image_ = std::move(image);
    if (wasLoaded || isLoaded())
        update();
    if (wasLoaded != isLoaded())
        Q_EMIT loadedChanged();
}

void SiteIconShape::paint(QPainter* painter) {
    if (image_.isNull())
        return;
    QRectF place(QPointF(), QSizeF(image_.size()).scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(QRectF(QPointF(), size()).center());
    QPainterPath corners;
    corners.addRoundedRect(place, cornerRadius, cornerRadius);
    painter->setClipPath(corners);
    const qreal density = window() ? window()->effectiveDevicePixelRatio() : 1;
    const QSize pixels = (place.size() * density).toSize();
    painter->drawImage(place,
                       image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

} // namespace brinmoor
