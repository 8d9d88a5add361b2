#include "lang/resource_factory.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "app/debug_trace.h"
#include "lang/catalogues/catalogues.h"
#include "lang/environment_locale.h"
#include "lang/languages.h"

namespace zev {

namespace {

/// The catalogue over one table of texts.
template <const CatalogueTexts& texts>
class Catalogue final : public Resource {
public:
    const char* getLanguageCode() const override { return texts.getLanguageCode; }

    icu::UnicodeString NUMERIC1_KEY() const override { return fromCodePage(texts.NUMERIC1_KEY); }
    icu::UnicodeString TITLE_KEY() const override { return fromCodePage(texts.TITLE_KEY); }
    icu::UnicodeString INSTRUCTIONS_KEY() const override { return fromCodePage(texts.INSTRUCTIONS_KEY); }
    icu::UnicodeString ACCEPT_KEY() const override { return fromCodePage(texts.ACCEPT_KEY); }
    icu::UnicodeString DECLINE_KEY() const override { return fromCodePage(texts.DECLINE_KEY); }
    icu::UnicodeString PRINT_KEY() const override { return fromCodePage(texts.PRINT_KEY); }
    icu::UnicodeString YES_KEY() const override { return fromCodePage(texts.YES_KEY); }
    icu::UnicodeString NO_KEY() const override { return fromCodePage(texts.NO_KEY); }
    icu::UnicodeString DECLINED_KEY() const override { return fromCodePage(texts.DECLINED_KEY); }
    icu::UnicodeString CONFIRMDECLINE_KEY() const override { return fromCodePage(texts.CONFIRMDECLINE_KEY); }
    icu::UnicodeString CLILANGMENU_KEY() const override { return fromCodePage(texts.CLILANGMENU_KEY); }
    icu::UnicodeString CLILANGMSG_KEY() const override { return fromCodePage(texts.CLILANGMSG_KEY); }
    icu::UnicodeString CLITITLE_KEY() const override { return fromCodePage(texts.CLITITLE_KEY); }
    icu::UnicodeString CLIINTROMSG_KEY() const override { return fromCodePage(texts.CLIINTROMSG_KEY); }
    icu::UnicodeString CLICONTMSG_KEY() const override { return fromCodePage(texts.CLICONTMSG_KEY); }
    icu::UnicodeString CLICFMMSG_KEY() const override { return fromCodePage(texts.CLICFMMSG_KEY); }
    icu::UnicodeString CLIACCMSG_KEY() const override { return fromCodePage(texts.CLIACCMSG_KEY); }
    icu::UnicodeString NUMERIC2_KEY() const override { return fromCodePage(texts.NUMERIC2_KEY); }
    icu::UnicodeString NUMERIC3_KEY() const override { return fromCodePage(texts.NUMERIC3_KEY); }
    icu::UnicodeString PRINTERRMSG_KEY() const override { return fromCodePage(texts.PRINTERRMSG_KEY); }
    icu::UnicodeString LANGNAME_KEY() const override { return fromCodePage(texts.LANGNAME_KEY); }
    icu::UnicodeString NONVURTERMS_KEY() const override { return fromCodePage(texts.NONVURTERMS_KEY); }
};

#define RESOURCE(code, ...) using Resource_##code = Catalogue<catalogues::code>;
ZEV_LANGUAGES(RESOURCE)
#undef RESOURCE

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
    // Begins with the last, so that "zh_TW" is found before its prefix "zh".
    const auto maker = std::find_if(std::rbegin(makers), std::rend(makers), [&](const Maker& candidate) {
        return std::string_view(code).starts_with(candidate.code);
    });
    if (maker != std::rend(makers)) return maker->create();
    trace("No resource found for language ", code, useDefault ? ", using default resource" : "");
    return useDefault ? create<Resource_en>() : nullptr;
}

}  // namespace zev
