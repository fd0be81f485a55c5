#include "account/ServiceCall.h"

#include <utility>

namespace brinmoor {

ServiceCall::ServiceCall(Http& http, HttpRequest request) {
    promise_.start();
    HttpListener listener;
    listener.head = [this](const HttpHead& head) {
        received_.status = head.status;
        return HttpGoOn::yes;
    };
    listener.bytes = [this](std::string_view bytes) { return take(bytes); };
    listener.end = [this](std::optional<HttpFailure> failed) {
        end(failed ? Answer(failure(*failed)) : Answer(std::move(received_)));
    };
    call_ = http.send(std::move(request), std::move(listener));
}

HttpGoOn ServiceCall::take(std::string_view bytes) {
    if (received_.body.size() + bytes.size() <= longestBody) {
        received_.body += bytes;
        return HttpGoOn::yes;
    }
    end(ServiceAnswer{received_.status, {}});
    return HttpGoOn::no;
}

void ServiceCall::cancel() {
    call_.cancel();
    end(failure(HttpFailure::cancelled));
}

void ServiceCall::end(Answer answer) {
    if (std::exchange(ended_, true))
        return;
    promise_.addResult(std::move(answer));
    promise_.finish();
}

} // namespace brinmoor
