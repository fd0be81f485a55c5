#include "platform/linux/LibsecretStore.h"

#include <libsecret/secret.h>

#include <memory>

namespace brinmoor {
namespace {

template <auto release>
struct Releases {
    template <class T>
    void operator()(T* held) const {
        release(held);
    }
};

using Service = std::unique_ptr<SecretService, Releases<g_object_unref>>;
using Value = std::unique_ptr<void, Releases<secret_value_unref>>;
using Attributes = std::unique_ptr<GHashTable, Releases<g_hash_table_unref>>;

void freeItems(GList* items) {
    g_list_free_full(items, g_object_unref);
}
using Items = std::unique_ptr<GList, Releases<freeItems>>;

/// Where a call puts what went wrong.
class Error {
public:
    Error() = default;
    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
    ~Error() { g_clear_error(&error_); }

    GError** place() {
        g_clear_error(&error_);
        return &error_;
    }
    [[nodiscard]] bool isSet() const { return error_ != nullptr; }
    [[nodiscard]] bool is(GQuark domain, int code) const {
        return g_error_matches(error_, domain, code) != FALSE;
    }

private:
    GError* error_ = nullptr;
};

/// The name is not matched: the two attributes alone tell what an item is.
const SecretSchema* schema() {
    static const SecretSchema login = {"app.brinmoor.Login",
                                       SECRET_SCHEMA_DONT_MATCH_NAME,
                                       {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING},
                                        {"account", SECRET_SCHEMA_ATTRIBUTE_STRING},
                                        {nullptr, SECRET_SCHEMA_ATTRIBUTE_STRING}},
                                       0,
                                       nullptr,
                                       nullptr,
                                       nullptr,
                                       nullptr,
                                       nullptr,
                                       nullptr,
                                       nullptr};
    return &login;
}

Attributes attributes(std::string_view service, std::string_view account) {
    return Attributes(secret_attributes_build(schema(), "service", std::string(service).c_str(),
                                              "account", std::string(account).c_str(), nullptr));
}

template <class T>
using Answer = Result<T, SecureStoreFailure>;

SecureStoreFailure failureOf(const Error& error) {
    // The second is how a prompt that the user dismissed is reported.
    const bool isLocked = error.is(SECRET_ERROR, SECRET_ERROR_IS_LOCKED) ||
                          error.is(G_IO_ERROR, G_IO_ERROR_CANCELLED);
    return isLocked ? SecureStoreFailure::locked : SecureStoreFailure::failed;
}

Answer<Items> found(SecretService* service, GHashTable* wanted) {
    Error error;
    Items items(secret_service_search_sync(service, schema(), wanted, SECRET_SEARCH_LOAD_SECRETS,
                                           nullptr, error.place()));
    if (error.isSet())
        return failure(failureOf(error));
    return items;
}

Answer<std::optional<std::string>> readOnce(SecretService* service, GHashTable* wanted) {
    const auto items = found(service, wanted);
    if (!items)
        return failure(items.error());
    if (!items.value())
        return std::optional<std::string>();
    auto* const item = static_cast<SecretItem*>(items.value()->data);
    if (secret_item_get_locked(item) != FALSE)
        return failure(SecureStoreFailure::locked);
    SecretValue* const value = secret_item_get_secret(item);
    if (value == nullptr)
        return failure(SecureStoreFailure::failed);
    gsize size = 0;
    const gchar* const bytes = secret_value_get(value, &size);
    std::optional<std::string> content(std::in_place, bytes, size);
    secret_value_unref(value);
    return content;
}

Answer<Done> writeOnce(SecretService* service, GHashTable* wanted, std::string_view bytes) {
    Error error;
    const Value value(
        secret_value_new(bytes.data(), static_cast<gssize>(bytes.size()), "text/plain"));
    secret_service_store_sync(service, schema(), wanted, SECRET_COLLECTION_DEFAULT, "Brinmoor",
                              static_cast<SecretValue*>(value.get()), nullptr, error.place());
    if (error.isSet())
        return failure(failureOf(error));
    return Done{};
}

Answer<Done> removeOnce(SecretService* service, GHashTable* wanted) {
    const auto items = found(service, wanted);
    if (!items)
        return failure(items.error());
    if (!items.value())
        return Done{};
    auto* const item = static_cast<SecretItem*>(items.value()->data);
    if (secret_item_get_locked(item) != FALSE)
        return failure(SecureStoreFailure::locked);
    Error error;
    secret_item_delete_sync(item, nullptr, error.place());
    if (error.isSet())
        return failure(failureOf(error));
    return Done{};
}

/// Runs a call on the store; once more on a new connection when it failed, since the store may
/// have been restarted behind an old one.
template <class Call>
auto connected(Call call) -> decltype(call(nullptr)) {
    for (int attempt = 0;; ++attempt) {
        Error error;
        const Service service(
            secret_service_get_sync(SECRET_SERVICE_OPEN_SESSION, nullptr, error.place()));
        if (!service)
            return failure(SecureStoreFailure::unavailable);
        // Otherwise the end of the D-Bus session would end this process without asking.
        g_dbus_connection_set_exit_on_close(
            g_dbus_proxy_get_connection(G_DBUS_PROXY(service.get())), FALSE);
        auto answer = call(service.get());
        if (answer || answer.error() != SecureStoreFailure::failed || attempt > 0)
            return answer;
        secret_service_disconnect();
    }
}

} // namespace

Result<std::optional<std::string>, SecureStoreFailure>
LibsecretStore::read(std::string_view service, std::string_view account) {
    const auto wanted = attributes(service, account);
    return connected([&](SecretService* store) { return readOnce(store, wanted.get()); });
}

Result<Done, SecureStoreFailure>
LibsecretStore::write(std::string_view service, std::string_view account, std::string_view bytes) {
    const auto wanted = attributes(service, account);
    return connected([&](SecretService* store) { return writeOnce(store, wanted.get(), bytes); });
}

Result<Done, SecureStoreFailure> LibsecretStore::remove(std::string_view service,
                                                        std::string_view account) {
    const auto wanted = attributes(service, account);
    return connected([&](SecretService* store) { return removeOnce(store, wanted.get()); });
}

} // namespace brinmoor
