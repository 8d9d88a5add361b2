#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts lt{
    .getLanguageCode = "lt",
    .NUMERIC1_KEY = escaped<u"12">,
    .TITLE_KEY = escaped<u"Programinės įrangos licencinė sutartis">,
    .INSTRUCTIONS_KEY = escaped<
        u"Prieš pradėdami naudotis Programa, atidžiai perskaitykite pridedamą licencinę sutartį. Pasirinkdami toliau "
        u"pateiktą parinktį „Priimti“ arba naudodamiesi Programa, sutinkate priimti šios sutarties sąlygas. Jei "
        u"pasirinksite parinktį „Atmesti“, diegimas nebus baigtas ir negalėsite naudotis Programa. ">,
    .ACCEPT_KEY = escaped<u"Priimti">,
    .DECLINE_KEY = escaped<u"Atmesti">,
    .PRINT_KEY = escaped<u"Spausdinti">,
    .YES_KEY = escaped<u"Taip">,
    .NO_KEY = escaped<u"Ne">,
    .DECLINED_KEY = escaped<
        u"Pasirinkote atmesti licencinę sutartį. Diegimas nebuvo baigtas. Diegimą galite vėliau pradėti iš naujo arba "
        u"galite grąžinti Programą asmeniui (bendrovei VUR arba jos perpardavėjui), iš kurio ją įsigijote, ir "
        u"paprašyti grąžinti sumokėtus pinigus.">,
    .CONFIRMDECLINE_KEY = escaped<u"Ar tikrai norite atmesti licencinę sutartį?">,
    .CLILANGMENU_KEY = escaped<u"UNUSED">,
    .CLILANGMSG_KEY = escaped<u"UNUSED">,
    .CLITITLE_KEY = escaped<u"UNUSED">,
    .CLIINTROMSG_KEY = escaped<u"UNUSED">,
    .CLICONTMSG_KEY = escaped<
        u"Paspauskite klavišą Enter, jei norite toliau peržiūrėti licencinę sutartį, arba įveskite pasirinktos "
        u"parinkties numerį: \"1\"\u00A0Priimti sutartį, \"2\"\u00A0Atmesti sutartį, \"99\"\u00A0Grįžti į ankstesnį "
        u"ekraną.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Pasirinkote atmesti licencinę sutartį. Programos diegimas bus nutrauktas. Jei tikrai norite atmesti "
        u"licencinę sutartį, patvirtinkite tai, dar kartą įvesdami \"2\". Kitu atveju įveskite \"1\", jei norite "
        u"priimti licencinę sutartį, arba paspauskite klavišą Enter, jei norite toliau skaityti sutartį.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Baigėte peržiūrėti licencinę sutartį. Įveskite \"1\", jei norite priimti sutartį, arba \"2\", jei norite "
        u"ją atmesti. Jei nuspręsite atmesti sutartį, diegimas nebus baigtas ir negalėsite naudotis Programa.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Įvyko spausdintuvo klaida. Licencinė sutartis nebus išspausdinta.">,
    .LANGNAME_KEY = escaped<u"Lietuvių">,
    .NONVURTERMS_KEY = escaped<u"Skaityti trečiųjų asmenų (ne VUR) sąlygas">,
};

}  // namespace zev::catalogues
