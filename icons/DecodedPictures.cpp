#include "icons/DecodedPictures.h"

#include <QProcess>
#include <QPromise>
#include <QTimer>

#include <utility>

namespace brinmoor {
namespace {

constexpr qsizetype largestIcon = 1 << 20;

/// One run of the decoder. Owns itself: its end is seen even if nobody waits for it any more.
class Decoding final : public QObject {
public:
    Decoding(const QString& program, const QByteArray& picture, std::chrono::milliseconds limit) {
        promise_.start();
        process_.setStandardErrorFile(QProcess::nullDevice());
        connect(&process_, &QProcess::readyReadStandardOutput, this, &Decoding::read);
        connect(&process_, &QProcess::finished, this, &Decoding::finished);
        connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                end(std::nullopt);
        });
        connect(&timer_, &QTimer::timeout, &process_, &QProcess::kill);
        timer_.setSingleShot(true);
        timer_.start(limit);
        process_.start(program, QStringList());
        process_.write(picture);
        process_.closeWriteChannel();
    }

    [[nodiscard]] QFuture<std::optional<QByteArray>> icon() { return promise_.future(); }

private:
    void read() {
        icon_ += process_.readAllStandardOutput();
        if (icon_.size() > largestIcon)
            process_.kill();
    }

    void finished(int code, QProcess::ExitStatus status) {
        read();
        const bool isGood = status == QProcess::NormalExit && code == 0 && !icon_.isEmpty() &&
                            icon_.size() <= largestIcon;
        end(isGood ? std::optional(std::move(icon_)) : std::nullopt);
    }

    void end(std::optional<QByteArray> icon) {
        if (std::exchange(ended_, true))
            return;
        timer_.stop();
        promise_.addResult(std::move(icon));
        promise_.finish();
        deleteLater();
    }

    QPromise<std::optional<QByteArray>> promise_;
    QProcess process_;
    QTimer timer_;
    QByteArray icon_;
    bool ended_ = false;
};

} // namespace

DecodedPictures::DecodedPictures(QString program, std::chrono::milliseconds limit)
    : program_(std::move(program)), limit_(limit) {}

QFuture<std::optional<QByteArray>> DecodedPictures::icon(QByteArray picture) {
    auto* decoding = new Decoding(program_, picture, limit_);
    return decoding->icon();
}

} // namespace brinmoor
