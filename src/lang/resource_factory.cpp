#include "lang/resource_factory.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "app/debug_trace.h"
#include "lang/catalogue.h"
#include "lang/languages.h"

namespace zev {

namespace {

template <class Catalogue>
std::unique_ptr<Resource> create() {
    return std::make_unique<Catalogue>();
}

struct Maker {
    std::string_view code;
    std::unique_ptr<Resource> (*create)();
};

constexpr Maker makers[]{
#define MAKER(code, ...) {#code, create<Resource_##code>},
    ZEV_LANGUAGES(MAKER)
#undef MAKER
};

}  // namespace

std::unique_ptr<Resource> createResource(const char* code, bool useDefault) {
    // From the last: "zh_TW" is found before its prefix "zh".
    const auto maker = std::find_if(std::rbegin(makers), std::rend(makers), [&](const Maker& candidate) {
        return std::string_view(code).starts_with(candidate.code);
    });
    if (maker != std::rend(makers)) return maker->create();
    trace("No resource found for language ", code, useDefault ? ", using default resource" : "");
    return useDefault ? create<Resource_en>() : nullptr;
}

}  // namespace zev
