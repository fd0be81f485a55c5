#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

namespace brinmoor {

class AppModel;

/// The short tour of the program's three habits. Only its last page finishes it.
class OnboardingScreen final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool shown READ isShown NOTIFY shownChanged FINAL)
    Q_PROPERTY(int step READ step NOTIFY stepChanged FINAL)
    Q_PROPERTY(int totalSteps READ steps CONSTANT FINAL)
    Q_PROPERTY(QString progress READ progress NOTIFY stepChanged FINAL)
    Q_PROPERTY(QString heading READ heading NOTIFY stepChanged FINAL)
    Q_PROPERTY(QString text READ text NOTIFY stepChanged FINAL)
    Q_PROPERTY(QString continueText READ continueText NOTIFY stepChanged FINAL)
    Q_PROPERTY(QStringList shortcut READ shortcut NOTIFY shortcutChanged FINAL)

public:
    static constexpr int totalSteps = 3;

    /// The model outlives it.
    explicit OnboardingScreen(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isShown() const;
    /// From 0.
    [[nodiscard]] int step() const noexcept { return step_; }
    [[nodiscard]] static int steps() noexcept { return totalSteps; }
    /// "1 of 3".
    [[nodiscard]] QString progress() const;
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString text() const;
    /// "Start saving" on the last page.
    [[nodiscard]] QString continueText() const;
    /// The keys that save the current page, one by one.
    [[nodiscard]] QStringList shortcut() const;

    Q_INVOKABLE void goBack();
    /// To the next page; from the last one the tour is done.
    Q_INVOKABLE void goOn();
    /// Leaves the tour unfinished: it comes again.
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void shownChanged();
    void stepChanged();
    void shortcutChanged();

private:
    void follow();
    void setStep(int step);

    AppModel& model_;
    int step_ = 0;
    bool shown_ = false;
};

} // namespace brinmoor
