#include "core/tags/TagTable.h"

#include "core/library/SavedLink.h"
#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"

namespace brinmoor::LinkAutoTagging {
namespace {

int voteOf(std::string_view tag) {
    switch (tagCaseStyleMatching(tag)) {
    case TagCaseStyle::leadingUppercase:
        return 1;
    case TagCaseStyle::lowercase:
        return -1;
    case TagCaseStyle::preserve:
        break;
    }
    return 0;
}

} // namespace

const std::vector<TagNumber>& TagTable::add(const std::vector<std::string>& tags) {
    ++linkNumber_;
    current_.clear();
    for (const std::string& raw : tags) {
        Spelling& found = spelling(raw);
        if (found.name.empty() || lastLink_[found.lowercase] == linkNumber_)
            continue;
        lastLink_[found.lowercase] = linkNumber_;
        if (!found.tag)
            found.tag = tagOf(found.name);
        current_.push_back(*found.tag);
        ++tags_[*found.tag].count;
        upperCaseLead_ += found.styleVote;
    }
    return current_;
}

TagCaseStyle TagTable::style() const noexcept {
    if (upperCaseLead_ == 0)
        return TagCaseStyle::preserve;
    return upperCaseLead_ > 0 ? TagCaseStyle::leadingUppercase : TagCaseStyle::lowercase;
}

TagTable::Spelling& TagTable::spelling(const std::string& raw) {
    const auto [number, isNew] = raw_.add(raw, TextNumbers::Storage::borrowed);
    if (isNew)
        spellings_.push_back(newSpelling(raw));
    return spellings_[number];
}

TagTable::Spelling TagTable::newSpelling(const std::string& raw) {
    const std::vector<std::string> normalized = SavedLink::normalizedTags({raw});
    if (normalized.empty())
        return {};
    const std::string& name = normalized.front();
    const auto [lowercase, isNew] =
        lowercases_.add(text::lowercased(name), TextNumbers::Storage::copied);
    if (isNew)
        lastLink_.push_back(0);
    return {name, std::nullopt, lowercase, voteOf(name)};
}

TagNumber TagTable::tagOf(const std::string& name) {
    const auto [tag, isNew] = folds_.add(LinkSearch::folded(name), TextNumbers::Storage::copied);
    if (isNew)
        tags_.push_back({name, 0});
    return tag;
}

} // namespace brinmoor::LinkAutoTagging
