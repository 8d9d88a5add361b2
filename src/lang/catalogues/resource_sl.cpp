#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts sl{
    .getLanguageCode = "sl",
    .NUMERIC1_KEY = escaped<u"12">,
    .TITLE_KEY = escaped<u"Licenčna pogodba za programsko opremo">,
    .INSTRUCTIONS_KEY = escaped<
        u"Pred uporabo Programa natančno preberite priloženo licenčno pogodbo. Z\u00A0izbiro spodnje možnosti "
        u"»Sprejmi« ali z\u00A0uporabo Programa soglašate, da sprejemate pogoje te pogodbe. Če izberete možnost "
        u"»Zavrni«, namestitev ne bo dokončana in Programa ne boste mogli uporabljati. ">,
    .ACCEPT_KEY = escaped<u"Sprejmi">,
    .DECLINE_KEY = escaped<u"Zavrni">,
    .PRINT_KEY = escaped<u"Natisni">,
    .YES_KEY = escaped<u"Da">,
    .NO_KEY = escaped<u"Ne">,
    .DECLINED_KEY = escaped<
        u"Izbrali ste zavrnitev licenčne pogodbe. Namestitev ni bila dokončana. Namestitev lahko pozneje znova "
        u"zaženete ali pa Program vrnete osebi (družbi VUR ali njenemu preprodajalcu), od katere ste ga pridobili, "
        u"in zahtevate vračilo kupnine.">,
    .CONFIRMDECLINE_KEY = escaped<u"Ali res želite zavrniti licenčno pogodbo?">,
    .CLILANGMENU_KEY = escaped<u"UNUSED">,
    .CLILANGMSG_KEY = escaped<u"UNUSED">,
    .CLITITLE_KEY = escaped<u"UNUSED">,
    .CLIINTROMSG_KEY = escaped<u"UNUSED">,
    .CLICONTMSG_KEY = escaped<
        u"Pritisnite tipko Enter, če želite nadaljevati ogled licenčne pogodbe, ali vnesite številko izbrane možnosti: "
        u"\"1\"\u00A0Sprejmi pogodbo, \"2\"\u00A0Zavrni pogodbo, \"99\"\u00A0Vrni se na prejšnji zaslon.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Izbrali ste zavrnitev licenčne pogodbe. Namestitev Programa bo prekinjena. Če ste prepričani, da želite "
        u"zavrniti licenčno pogodbo, to potrdite tako, da znova vnesete \"2\". V\u00A0nasprotnem primeru vnesite "
        u"\"1\", če želite sprejeti licenčno pogodbo, ali pritisnite tipko Enter, če želite nadaljevati branje "
        u"pogodbe.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Končali ste ogled licenčne pogodbe. Vnesite \"1\", če želite sprejeti pogodbo, ali \"2\", če jo želite "
        u"zavrniti. Če se odločite za zavrnitev pogodbe, namestitev ne bo dokončana in Programa ne boste mogli "
        u"uporabljati.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Prišlo je do napake tiskalnika. Licenčna pogodba ne bo natisnjena.">,
    .LANGNAME_KEY = escaped<u"Slovenščina">,
    .NONVURTERMS_KEY = escaped<u"Preberi pogoje tretjih oseb (ne družbe VUR)">,
};

}  // namespace zev::catalogues
