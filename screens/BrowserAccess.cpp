#include "screens/BrowserAccess.h"

#include "app/AppModel.h"
#include "core/capture/CaptureError.h"
#include "screens/Wording.h"

#include <QStringList>

#include <algorithm>

namespace brinmoor {
namespace {

using State = BrowserConnections::State;
using Entry = BrowserConnections::Entry;

BrowserAccess::Mark markOf(State state) {
    switch (state) {
    case State::checking:
        return BrowserAccess::Spinner;
    case State::connected:
        return BrowserAccess::Filled;
    case State::notAdded:
    case State::noAnswer:
        return BrowserAccess::Failing;
    case State::notRunning:
        return BrowserAccess::Ring;
    case State::sandboxed:
    case State::unsupported:
        break;
    }
    return BrowserAccess::NoMark;
}

QString wordsOf(State state) {
    switch (state) {
    case State::checking:
        return words("Checking…");
    case State::connected:
        return words("Connected");
    case State::notAdded:
        return words("Extension not added");
    case State::noAnswer:
        return words("Not answering");
    case State::notRunning:
        return words("Not running");
    case State::sandboxed:
        return words("In a sandbox");
    case State::unsupported:
        break;
    }
    return {};
}

CaptureNotice unsupported(const Entry& entry) {
    return CaptureError{CaptureError::Cause::unsupported, entry.name}.notice({});
}

QString nameOf(const Entry& entry) {
    return QString::fromStdString(entry.state == State::unsupported ? unsupported(entry).title
                                                                    : entry.name);
}

QString noteOf(const Entry& entry) {
    if (entry.state == State::unsupported)
        return QString::fromStdString(unsupported(entry).message);
    if (entry.state == State::sandboxed)
        return words("Its package lets it start no other program. Install it from your system’s "
                     "own packages to connect it.");
    if (entry.state == State::noAnswer)
        return words("The extension is there, but the browser didn’t answer it in time.");
    return {};
}

} // namespace

BrowserAccess::BrowserAccess(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), model_(model), connections_(model.browserConnections()) {
    connect(&connections_, &BrowserConnections::changed, this, [this] { show(); });
    show();
}

void BrowserAccess::show() {
    const auto sameBrowser = [](const Entry& one, const Entry& other) {
        return one.id == other.id;
    };
    const auto& now = connections_.entries();
    const bool sameList =
        std::equal(now.begin(), now.end(), entries_.begin(), entries_.end(), sameBrowser);
    if (!sameList)
        beginResetModel();
    entries_ = now;
    for (const Entry& entry : entries_)
        if (entry.state != State::checking)
            settled_[entry.id] = entry.state;
    if (!unfolded_ && !connections_.isChecking())
        unfoldOnlySteps();
    if (!sameList)
        endResetModel();
    else if (!entries_.empty())
        Q_EMIT dataChanged(index(0), index(int(entries_.size()) - 1));
    Q_EMIT changed();
}

void BrowserAccess::unfoldOnlySteps() {
    std::vector<std::string> offering;
    for (const Entry& entry : entries_)
        if (!stepsOf(entry).empty())
            offering.push_back(entry.id);
    unfolded_ = offering.size() == 1;
    if (unfolded_)
        expanded_.insert(offering.front());
}

bool BrowserAccess::isChecking() const {
    return connections_.isChecking();
}

bool BrowserAccess::isEmpty() const {
    return entries_.empty();
}

void BrowserAccess::check() {
    connections_.check();
}

std::vector<ConnectionStep> BrowserAccess::stepsOf(const Entry& entry) const {
    // While it is asked once more, the steps that are being followed stay.
    const auto settled = settled_.find(entry.id);
    if (settled == settled_.end() || settled->second != State::notAdded)
        return {};
    return connectionSteps(entry.id, entry.name, connections_.extensionFolder());
}

void BrowserAccess::toggleSteps(int row) {
    if (row < 0 || row >= rowCount())
        return;
    const std::string& id = entries_[std::size_t(row)].id;
    if (expanded_.erase(id) == 0)
        expanded_.insert(id);
    Q_EMIT dataChanged(index(row), index(row), {ExpandedRole});
}

void BrowserAccess::copy(const QString& text) {
    model_.copyText(text.toStdString());
}

int BrowserAccess::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(entries_.size());
}

QVariant BrowserAccess::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Entry& entry = entries_[std::size_t(index.row())];
    QStringList parts;
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return nameOf(entry);
    case BrowserRole:
        return QString::fromStdString(entry.name);
    case MarkRole:
        return int(markOf(entry.state));
    case WordsRole:
        return wordsOf(entry.state);
    case NoteRole:
        return noteOf(entry);
    case HasStepsRole:
        return !stepsOf(entry).empty();
    case ExpandedRole:
        return expanded_.contains(entry.id);
    case StepsRole:
        for (const ConnectionStep& step : stepsOf(entry))
            parts.append(QString::fromStdString(step.text));
        return parts;
    case CopyablesRole:
        for (const ConnectionStep& step : stepsOf(entry))
            parts.append(QString::fromStdString(step.copyable));
        return parts;
    default:
        return {};
    }
}

QHash<int, QByteArray> BrowserAccess::roleNames() const {
    return {{NameRole, "name"},         {BrowserRole, "browser"}, {MarkRole, "mark"},
            {WordsRole, "stateWords"},  {NoteRole, "note"},       {HasStepsRole, "hasSteps"},
            {ExpandedRole, "expanded"}, {StepsRole, "steps"},     {CopyablesRole, "copyables"}};
}

} // namespace brinmoor
