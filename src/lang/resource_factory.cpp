#include "lang/resource_factory.h"

#include <string_view>

#include "app/debug_trace.h"
#include "lang/catalogue.h"

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

/// The order of the tests. Deliberately not that of the language table: "zh_TW" stands before its prefix "zh".
constexpr Maker makers[]{
    {"cs", create<Resource_cs>},       {"el", create<Resource_el>}, {"en", create<Resource_en>},
    {"es", create<Resource_es>},       {"fr", create<Resource_fr>}, {"de", create<Resource_de>},
    {"it", create<Resource_it>},       {"ja", create<Resource_ja>}, {"ko", create<Resource_ko>},
    {"lt", create<Resource_lt>},       {"pl", create<Resource_pl>}, {"pt", create<Resource_pt>},
    {"ru", create<Resource_ru>},       {"sl", create<Resource_sl>}, {"tr", create<Resource_tr>},
    {"zh_TW", create<Resource_zh_TW>}, {"zh", create<Resource_zh>},
};

}  // namespace

std::unique_ptr<Resource> createResource(const char* code, bool useDefault) {
    for (const Maker& maker : makers) {
        if (std::string_view(code).starts_with(maker.code)) return maker.create();
    }
    trace("No resource found for language ", code, useDefault ? ", using default resource" : "");
    return useDefault ? create<Resource_en>() : nullptr;
}

}  // namespace zev
