#pragma once

#include "lang/catalogue_texts.h"

/// The texts of the seventeen catalogues, each defined in the file of its language.
namespace zev::catalogues {

extern const CatalogueTexts cs, de, el, en, es, fr, it, ja, ko, lt, pl, pt, ru, sl, tr, zh, zh_TW;

}  // namespace zev::catalogues
