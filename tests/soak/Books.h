#pragma once

#include "core/library/Library.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace brinmoor::testing {

/// One link as the books know it.
struct Entry {
    std::string id;
    std::string url;
    std::string title;
    std::string note;
    std::vector<std::string> tags;
    bool isFavorite = false;
    bool isArchived = false;
    std::string label; ///< as stored, or empty

    friend bool operator==(const Entry&, const Entry&) = default;
};

using Entries = std::vector<Entry>;

[[nodiscard]] Entries entriesOf(const Library& library);
/// Equal but for the ids, which only the program gives.
[[nodiscard]] bool sameButForIds(const Entries& left, const Entries& right);

/// What the library has to hold after each command that succeeded, kept by hand: plain lists, and
/// the rules of the two undo records as the user knows them.
class Books {
public:
    Entries entries;

    void archive(bool archived, const std::set<std::string>& ids);
    void undoArchive();
    void empty(const std::set<std::string>& ids);
    void remove(const std::string& id);
    void undo();
    void renameTag(const std::string& old, const std::string& to);
    void deleteTag(const std::string& tag);
    void update(const std::string& id, const std::string& title, const std::string& note,
                const std::vector<std::string>& tags);
    void favorite(const std::string& id);
    void label(const std::string& id, const std::string& label);
    void add(const Entries& added);
    /// The program was started anew: no undo is left.
    void forgetUndo();

private:
    struct Undo {
        Entries entries;
        bool endsArchiveUndo = false;
    };
    struct ArchiveUndo {
        std::set<std::string> ids;
        bool archived = false;
    };

    void change(Entries next, bool endsArchiveUndo = false);
    void changeOne(const std::string& id, const std::function<void(Entry&)>& edit);

    std::optional<Undo> undo_;
    std::optional<ArchiveUndo> archiveUndo_;
};

} // namespace brinmoor::testing
