#include "icons/SiteIconLoader.h"

#include "core/icons/SiteIcon.h"
#include "icons/Gate.h"
#include "icons/IconSearch.h"

#include <QCoroFuture>
#include <QCryptographicHash>
#include <QPromise>

#include <unordered_map>
#include <utility>

namespace brinmoor {
namespace {

using Icon = std::optional<QByteArray>;

/// One site has one key for each hint.
std::string keyOf(const WebAddress& origin, const std::optional<WebAddress>& explicitIcon) {
    const std::string text = origin.string() + '|' + (explicitIcon ? explicitIcon->string() : "");
    const QByteArray bytes = QByteArray::fromStdString(text);
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

} // namespace

struct SiteIconLoader::State {
    State(Http& http, Clock& clock_, IconPictures& pictures_, const std::string& folder,
          IconFetches::Limits limits)
        : clock(clock_), pictures(pictures_), files(folder), fetches(http, limits) {}

    struct Entry {
        std::optional<QByteArray> data; ///< absent: there was none
        Instant expires;
    };

    Clock& clock;
    IconPictures& pictures;
    IconFiles files;
    IconFetches fetches;
    Gate slots{mostLoads};
    std::unordered_map<std::string, Entry> cache;
    std::unordered_map<std::string, QFuture<Icon>> pending;

    void remember(const std::string& key, const Icon& icon) {
        const double life = icon ? IconFiles::lifeInSeconds : lifeOfFailureInSeconds;
        if (cache.size() >= mostRemembered)
            cache.clear();
        cache[key] = {icon, Instant{clock.now().seconds + life}};
    }

    /// From the disk, or from the network when one of the slots is free.
    static QCoro::Task<Icon> load(std::shared_ptr<State> state, WebAddress origin,
                                  std::optional<WebAddress> explicitIcon, std::string key) {
        Icon kept = state->files.read(key, state->clock.now());
        if (kept)
            co_return kept;
        const QFuture<void> slot = state->slots.enter();
        co_await slot;
        IconSearch search(state->fetches, state->pictures);
        const auto searching = search.icon(origin, explicitIcon);
        Icon found = co_await searching;
        if (found)
            state->files.keep(key, *found);
        state->slots.leave();
        co_return found;
    }
};

SiteIconLoader::SiteIconLoader(Http& http, Clock& clock, IconPictures& pictures,
                               const std::string& folder, IconFetches::Limits limits)
    : state_(std::make_shared<State>(http, clock, pictures, folder, limits)) {}

SiteIconLoader::~SiteIconLoader() = default;

std::size_t SiteIconLoader::activeLoads() const noexcept {
    return state_->slots.inside();
}

std::size_t SiteIconLoader::remembered() const noexcept {
    return state_->cache.size();
}

QCoro::Task<Icon> SiteIconLoader::image(std::string page, std::optional<std::string> hint) {
    const std::optional<WebAddress> origin = SiteIcon::origin(page);
    if (!origin)
        co_return std::nullopt;
    const std::optional<WebAddress> explicitIcon = SiteIcon::resolve(hint, *origin);
    const std::string key = keyOf(*origin, explicitIcon);
    const std::shared_ptr<State> state = state_;
    const auto known = state->cache.find(key);
    if (known != state->cache.end() && known->second.expires > state->clock.now())
        co_return known->second.data;
    const auto running = state->pending.find(key);
    if (running != state->pending.end()) {
        const QFuture<Icon> shared = running->second;
        Icon icon = co_await shared;
        co_return icon;
    }
    QPromise<Icon> promise;
    promise.start();
    state->pending.emplace(key, promise.future());
    const auto loading = State::load(state, *origin, explicitIcon, key);
    Icon icon = co_await loading;
    state->pending.erase(key);
    state->remember(key, icon);
    promise.addResult(icon);
    promise.finish();
    co_return icon;
}

} // namespace brinmoor
