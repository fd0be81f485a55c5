#include "core/tabs/TabCleanupPlanner.h"

#include "core/library/Library.h"
#include "core/text/Characters.h"
#include "core/text/WebAddress.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace brinmoor::TabCleanupPlanner {
namespace {

using Tab = const BrowserTabSnapshot*;

/// One tab for each identity; a later one takes the place of an earlier one.
using Plan = std::unordered_map<std::string, Tab>;

using Domains = std::set<std::string, std::less<>>;

bool isWebPage(const BrowserTabSnapshot& tab) {
    return Library::validatedURL(tab.url).has_value();
}

/// A page counts as a copy only within one window of one browser.
std::string duplicateKey(const BrowserTabSnapshot& tab) {
    return tab.browserID + "|" + tab.windowID + "|" + Library::identity(tab.url);
}

/// The first in this order is the one to keep.
bool isKeptBefore(Tab a, Tab b) {
    return std::tuple(!a->isActive, a->windowIndex, a->index) <
           std::tuple(!b->isActive, b->windowIndex, b->index);
}

void planAllButOne(std::vector<Tab> group, Plan& plan) {
    std::ranges::stable_sort(group, isKeptBefore);
    group.erase(group.begin());
    for (const Tab tab : group)
        plan.insert_or_assign(tab->id(), tab);
}

std::vector<BrowserTabSnapshot> inClosingOrder(std::vector<Tab> tabs) {
    // All of them lie in one list, so the last resort is their order there.
    std::ranges::sort(tabs, [](Tab a, Tab b) {
        return std::tie(a->browserID, a->windowIndex, a->index, a) <
               std::tie(b->browserID, b->windowIndex, b->index, b);
    });
    std::vector<BrowserTabSnapshot> ordered;
    ordered.reserve(tabs.size());
    for (const Tab tab : tabs)
        ordered.push_back(*tab);
    return ordered;
}

/// Whether the domain or one that it belongs to is wanted.
bool isWithin(std::string_view domain, const Domains& wanted) {
    for (;;) {
        if (wanted.contains(domain))
            return true;
        const auto dot = domain.find('.');
        if (dot == std::string_view::npos)
            return false;
        domain.remove_prefix(dot + 1);
    }
}

std::string_view withoutOuterDots(std::string_view host) {
    const auto first = host.find_first_not_of('.');
    if (first == std::string_view::npos)
        return {};
    return host.substr(first, host.find_last_not_of('.') - first + 1);
}

bool holdsWhiteSpace(std::string_view value) {
    for (std::size_t at = 0; at < value.size();)
        if (text::isWhiteSpace(text::nextCharacter(value, at)))
            return true;
    return false;
}

} // namespace

std::vector<BrowserTabSnapshot>
duplicateAndEmptyCandidates(const std::vector<BrowserTabSnapshot>& tabs) {
    Plan plan;
    std::map<std::string, std::vector<Tab>> groups;
    for (const BrowserTabSnapshot& tab : tabs) {
        if (tab.isEmpty)
            plan.insert_or_assign(tab.id(), &tab);
        else if (isWebPage(tab))
            groups[duplicateKey(tab)].push_back(&tab);
    }
    for (auto& [key, group] : groups)
        planAllButOne(std::move(group), plan);
    std::vector<Tab> planned;
    for (const auto& [id, tab] : plan)
        planned.push_back(tab);
    return inClosingOrder(std::move(planned));
}

std::vector<BrowserTabSnapshot> domainCandidates(const std::vector<BrowserTabSnapshot>& tabs,
                                                 const std::vector<std::string>& domains) {
    Domains wanted;
    for (const std::string& entry : domains)
        if (auto domain = normalizedDomain(entry))
            wanted.insert(std::move(*domain));
    if (wanted.empty())
        return {};
    std::vector<Tab> kept;
    for (const BrowserTabSnapshot& tab : tabs) {
        if (!isWebPage(tab))
            continue;
        const auto domain = normalizedDomain(tab.domain());
        if (domain && isWithin(*domain, wanted))
            kept.push_back(&tab);
    }
    return inClosingOrder(std::move(kept));
}

std::optional<std::string> normalizedDomain(std::string_view value) {
    std::string entry = text::lowercased(text::trimmed(value));
    if (entry.empty() || holdsWhiteSpace(entry))
        return std::nullopt;
    if (entry.find("://") == std::string::npos)
        entry.insert(0, "https://");
    const auto address = WebAddress::parse(entry);
    if (!address || address->hasUserInfo())
        return std::nullopt;
    std::string_view host = withoutOuterDots(address->host());
    if (host.empty())
        return std::nullopt;
    if (host.starts_with("www."))
        host.remove_prefix(4);
    return std::string(host);
}

} // namespace brinmoor::TabCleanupPlanner
