#pragma once

/// The one list of languages, from which the language table (in this order), the catalogues and their factory derive. A
/// row is LANGUAGE(code, English name, whether the smaller set has it). List a code after any code that is its prefix.
#define ZEV_LANGUAGES(LANGUAGE)       \
    LANGUAGE(cs, "Czech", true)       \
    LANGUAGE(de, "German", true)      \
    LANGUAGE(el, "Greek", false)      \
    LANGUAGE(en, "English", true)     \
    LANGUAGE(es, "Spanish", true)     \
    LANGUAGE(fr, "French", true)      \
    LANGUAGE(it, "Italian", true)     \
    LANGUAGE(ja, "Japanese", true)    \
    LANGUAGE(ko, "Korean", true)      \
    LANGUAGE(lt, "Lithuanian", false) \
    LANGUAGE(pl, "Polish", true)      \
    LANGUAGE(pt, "Portuguese", true)  \
    LANGUAGE(ru, "Russian", false)    \
    LANGUAGE(sl, "Slovenian", false)  \
    LANGUAGE(tr, "Turkish", true)     \
    LANGUAGE(zh, "Chinese", true)     \
    LANGUAGE(zh_TW, "Chinese_TW", true)
