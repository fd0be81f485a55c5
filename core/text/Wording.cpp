#include "core/text/Wording.h"

namespace brinmoor::text {
namespace {

Wording installed = nullptr;

} // namespace

void setWording(Wording wording) noexcept {
    installed = wording;
}

std::string worded(std::string_view source) {
    return installed == nullptr ? std::string(source) : installed(source);
}

} // namespace brinmoor::text
