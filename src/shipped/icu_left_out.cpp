// ICU's file functions can format numbers and transliterate text. zev uses neither, but the code that it does use
// refers to both, so that the linker would add them: 2.3 MB of a static executable. It finds the functions below first
// and leaves ICU's own out.
//
// Only the functions that close are ever called, with nothing to close. Any other one stops the run: it has no right
// result to return, and a wrong one could be taken for an agreement. Every build uses these functions, so the tests
// show that no other one is called.
#include <unicode/unum.h>
#include <unicode/utrans.h>

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void stop() {
    std::fputs("zev: ICU called a function that is left out\n", stderr);
    std::abort();
}

void stopUnlessNull(const void* object) {
    if (object != nullptr) stop();
}

}  // namespace

extern "C" {

UNumberFormat* unum_open(UNumberFormatStyle, const UChar*, int32_t, const char*, UParseError*, UErrorCode*) { stop(); }
UNumberFormat* unum_clone(const UNumberFormat*, UErrorCode*) { stop(); }
void unum_close(UNumberFormat* format) { stopUnlessNull(format); }
int32_t unum_formatInt64(const UNumberFormat*, int64_t, UChar*, int32_t, UFieldPosition*, UErrorCode*) { stop(); }
int32_t unum_formatDouble(const UNumberFormat*, double, UChar*, int32_t, UFieldPosition*, UErrorCode*) { stop(); }
int32_t unum_getAttribute(const UNumberFormat*, UNumberFormatAttribute) { stop(); }
void unum_setAttribute(UNumberFormat*, UNumberFormatAttribute, int32_t) { stop(); }
int32_t unum_getTextAttribute(const UNumberFormat*, UNumberFormatTextAttribute, UChar*, int32_t, UErrorCode*) {
    stop();
}
void unum_setTextAttribute(UNumberFormat*, UNumberFormatTextAttribute, const UChar*, int32_t, UErrorCode*) { stop(); }
int32_t unum_getSymbol(const UNumberFormat*, UNumberFormatSymbol, UChar*, int32_t, UErrorCode*) { stop(); }
void unum_setSymbol(UNumberFormat*, UNumberFormatSymbol, const UChar*, int32_t, UErrorCode*) { stop(); }

void utrans_close(UTransliterator* transliterator) { stopUnlessNull(transliterator); }
void utrans_transUChars(const UTransliterator*, UChar*, int32_t*, int32_t, int32_t, int32_t*, UErrorCode*) { stop(); }
void utrans_transIncrementalUChars(const UTransliterator*, UChar*, int32_t*, int32_t, UTransPosition*, UErrorCode*) {
    stop();
}

}  // extern "C"
