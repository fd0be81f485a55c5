// The application's model without its windows, on a real library file. Each line of standard input
// is a command, its fields between tabs; each is answered by one line: whether an error stands, and
// the ids of the newest links.

#include "app/AppModel.h"
#include "platform/linux/SystemClock.h"
#include "tests/support/MadeUpParts.h"

#include <QCoreApplication>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>

namespace brinmoor::testing {
namespace {

using Fields = std::vector<std::string>;

constexpr std::size_t newestTold = 20;

Fields split(const std::string& text, char separator) {
    Fields fields;
    std::istringstream stream(text);
    for (std::string field; std::getline(stream, field, separator);)
        fields.push_back(field);
    return fields;
}

UuidSet idsOf(const std::string& text) {
    UuidSet ids;
    for (const std::string& each : split(text, ','))
        ids.insert(*Uuid::parse(each));
    return ids;
}

void limit(__rlimit_resource resource, rlim_t soft) {
    rlimit limits{};
    ::getrlimit(resource, &limits);
    limits.rlim_cur = std::min(soft, limits.rlim_max);
    ::setrlimit(resource, &limits);
}

/// The number that the next open file would get.
rlim_t nextDescriptor() {
    const int next = ::dup(STDIN_FILENO);
    ::close(next);
    return static_cast<rlim_t>(next);
}

class Worker {
public:
    explicit Worker(std::string libraryPath) : path_(std::move(libraryPath)) {}

    void perform(const Fields& fields) {
        model_.dismissError();
        commands_.at(fields.at(0))(fields);
        QCoreApplication::processEvents();
        answer();
    }
    void answer() {
        std::cout << (model_.error() ? "failed" : "done");
        const auto& links = model_.library().links;
        for (std::size_t place = 0; place < std::min(newestTold, links.size()); ++place)
            std::cout << '\t' << links[place].id.string();
        std::cout << std::endl;
    }

private:
    const SavedLink& link(const std::string& id) {
        return *std::ranges::find(model_.library().links, *Uuid::parse(id), &SavedLink::id);
    }
    void update(const Fields& fields) {
        SavedLink edited = link(fields.at(1));
        edited.title = fields.at(2);
        edited.note = fields.at(3) == "-" ? "" : fields.at(3);
        edited.tags = fields.at(4) == "-" ? Fields() : split(fields.at(4), ',');
        model_.update(edited);
    }
    void fail(const std::string& how) {
        limit(RLIMIT_FSIZE, how == "size" ? 5000 : RLIM_INFINITY);
        limit(RLIMIT_NOFILE, RLIM_INFINITY);
        if (how == "open")
            limit(RLIMIT_NOFILE, nextDescriptor());
    }

    const std::string path_;
    SystemClock clock_;
    MadeUpParts parts_;
    AppModel model_{parts_.partsFor(path_, clock_)};
    const std::map<std::string, std::function<void(const Fields&)>> commands_{
        {"archive", [this](const Fields& given) { model_.setArchived(true, idsOf(given.at(1))); }},
        {"restore", [this](const Fields& given) { model_.setArchived(false, idsOf(given.at(1))); }},
        {"undoArchive", [this](const Fields&) { model_.undoArchive(); }},
        {"empty", [this](const Fields& given) { model_.emptyArchive(idsOf(given.at(1))); }},
        {"delete", [this](const Fields& given) { model_.deleteLink(link(given.at(1))); }},
        {"undo", [this](const Fields&) { model_.undoLastAction(); }},
        {"renameTag", [this](const Fields& given) { model_.renameTag(given.at(1), given.at(2)); }},
        {"deleteTag", [this](const Fields& given) { model_.deleteTag(given.at(1)); }},
        {"update", [this](const Fields& given) { update(given); }},
        {"favorite",
         [this](const Fields& given) { model_.toggleFavorite(*Uuid::parse(given.at(1))); }},
        {"label",
         [this](const Fields& given) {
             model_.labelImportance(*Uuid::parse(given.at(1)), linkImportance(given.at(2)));
         }},
        {"add",
         [this](const Fields& given) { model_.add(given.at(1), given.at(2), "Inbox", "", {}); }},
        {"import",
         [this](const Fields& given) {
             model_.importLibrary();
             parts_.files.answer(given.at(1));
         }},
        {"fail", [this](const Fields& given) { fail(given.at(1)); }},
    };
};

} // namespace
} // namespace brinmoor::testing

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    std::signal(SIGXFSZ, SIG_IGN);
    const QCoreApplication application(count, arguments);
    brinmoor::testing::Worker worker(arguments[1]);
    worker.answer();
    for (std::string line; std::getline(std::cin, line);)
        worker.perform(brinmoor::testing::split(line, '\t'));
    return 0;
}
