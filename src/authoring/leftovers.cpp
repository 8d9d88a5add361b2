#include "authoring/leftovers.h"

#include <unicode/localpointer.h>
#include <unicode/regex.h>

#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zev {

namespace {

struct LeftoverType {
    const char* name;
    std::u16string_view beginnings;  ///< the code units that it can begin with; the search tries no others
    const char16_t* pattern;         ///< a regular expression; Chinese letters can touch words in ASCII
};

constexpr LeftoverType types[]{
    // Seven equals signs below a short line underline a title.
    {"conflict marker", u"<>|=",
     uR"(^(?:<{7}|>{7}|\|{7})(?= |$)|(?=={7}$)(?<=[^\n]{20}\n|[\u2E80-\uFFFF]{10}\n|\n\n)={7})"},
    // "{yyyy}" and "{name of copyright owner}" are part of a public licence.
    {"placeholder", u"{$#%@<[",
     uR"(\{\{[^{}\n]{1,60}\}\}|[$#%]\{[^{}\n]{1,60}\}|\$\([A-Za-z][A-Za-z0-9_]*\))"
     uR"(|\{(?!yyyy\}|name of copyright owner\})[\p{L}\p{N}_][\p{L}\p{N}_ .:-]{0,40}\})"
     uR"(|(?<![A-Za-z0-9_.])@[A-Za-z][A-Za-z0-9_.-]*@(?![A-Za-z0-9_])|%[A-Z][A-Z_]+%|%\([a-z_]+\)s|<%[^%\n]{0,200}%>)"
     uR"(|(?<![0-9]\s?)%(?:[0-9]\$)?l?[sdiu](?![A-Za-z0-9_])|(?i:\[\s*insert(?![a-z])[^\]]{0,200}\]))"},
    {"note to oneself", u"FXT", uR"((?<![A-Za-z_])(?:FIXME|XXX+)(?![A-Za-z_])|(?<![A-Za-z])TODO:)"},
    {"filler", u"lL", uR"((?i:lorem\s+ipsum))"},
    {"HTML", u"<&",
     uR"((?i)</?(?:a|abbr|b|big|blockquote|body|br|center|code|dd|div|dl|dt|em|font|h[1-6]|head|hr|html|i|img|li|link)"
     uR"(|meta|ol|p|pre|script|section|small|span|strong|style|sub|sup|table|tbody|td|th|thead|title|tr|tt|u|ul))"
     uR"((?:\s+[a-z:-]+\s*=[^<>]*)?\s*/?>|<!--|&(?:amp|lt|gt|quot|apos|nbsp|copy|reg|trade|[mn]dash|hellip)"
     uR"(|[lr][sd]quo|[bs][bd]quo|[lr]s?aquo|iexcl|iquest|times|bull|sect|para|middot|euro|shy|deg|szlig)"
     uR"(|[ao]elig|eth|thorn|[a-z](?:acute|grave|circ|uml|tilde|cedil|ring|caron|slash)|#[0-9]{1,7}|#x[0-9a-f]{1,6});)"},
    {"RTF", u"{", uR"(\{\\rtf)"},
    // A name of a file in Windows, such as "C:\new" or "docs\new.txt", goes on with small letters.
    {"escape", u"\\",
     uR"(\\[nrt](?![a-z0-9_])|(?<=[.,;!?)])\\[nrt]|\\u[0-9A-Fa-f]{4})"
     uR"(|(?<=\p{L})(?<![:\\]\\[^\n]{0,80}|\\\S{1,40})\\n(?=\p{Ll})(?!\S*\.\p{L}))"},
    // The query of an address can have such values, and so can a country, as in "C=DE".
    {"quoted-printable", u"=",
     uR"((?==[0-9A-F])(?<![?&]\w{1,20})(?:(?:=[0-9A-F]{2}){2,}|=3D|=20$)"
     uR"(|(?<=\p{L})=(?:[A-F][0-9](?![0-9A-Za-z])|[89A-F][0-9A-F](?=\p{L})))"
     uR"(|(?<![\p{L}\p{N}_])=[89A-F][0-9A-F](?=\p{Ll}{2})|(?<=\p{Ll})=(?:DF|E[0-9A-DF]|F[0-9A-E])(?![0-9A-Za-z])))"
     uR"(|(?<=[a-z,;])=(?=\n[a-z]))"},
};

std::string shortened(icu::UnicodeString text) {
    constexpr int32_t longest = 40;  ///< code units in a message
    if (text.length() > longest) text.replace(text.getChar32Start(longest), text.length(), u"…");
    return printable(utf8Of(text));
}

/// Whether there is a leftover of a type from `begin` on; the matcher then has the first.
bool findFrom(int32_t begin, const icu::UnicodeString& text, const LeftoverType& type, icu::RegexMatcher& matcher) {
    const std::u16string_view units(text.getBuffer(), static_cast<std::size_t>(text.length()));
    UErrorCode status = U_ZERO_ERROR;
    for (auto at = static_cast<std::size_t>(begin); (at = units.find_first_of(type.beginnings, at)) != units.npos;
         ++at) {
        matcher.region(static_cast<int32_t>(at), text.length(), status);
        if (matcher.lookingAt(status) != 0) return true;
    }
    return false;
}

Findings findType(const SetText& text, const LeftoverType& type, const icu::RegexPattern& pattern) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalPointer<icu::RegexMatcher> matcher(pattern.matcher(text.text, status));
    if (U_FAILURE(status)) return {};
    matcher->useTransparentBounds(true).useAnchoringBounds(false);
    std::size_t count = 0;
    int32_t first = 0;
    std::string sample;
    for (int32_t next = 0; findFrom(next, text.text, type, *matcher); next = matcher->end(status)) {
        if (count++ > 0) continue;
        first = matcher->start(status);
        sample = shortened(matcher->group(status));
    }
    if (count == 0) return {};
    return {text.findingAt(first, Severity::warning, "leftover",
                           countedName(std::string(type.name) + " left in the text", count) + ": " + sample)};
}

}  // namespace

Findings findLeftovers(const SetText& text) {
    // Compiling them takes longer than searching a text.
    static const auto patterns = [] {
        std::vector<std::unique_ptr<icu::RegexPattern>> compiled;
        for (const LeftoverType& type : types) {
            UErrorCode status = U_ZERO_ERROR;
            compiled.emplace_back(icu::RegexPattern::compile(type.pattern, UREGEX_MULTILINE, status));
        }
        return compiled;
    }();
    Findings findings;
    for (std::size_t i = 0; i < std::size(types); ++i) {
        append(findings, findType(text, types[i], *patterns[i]));
    }
    return findings;
}

}  // namespace zev
