#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

// Deliberately U+009A and U+009E for š and ž in six texts, and è, È and ì for č, Č and ě in the language menu: installers
// compare these texts byte for byte.
constinit const CatalogueTexts cs{
    .getLanguageCode = "cs",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = escaped<u"Licenční smlouva o u\u009Eívání softwaru">,
    .INSTRUCTIONS_KEY = escaped<
        u"Před pou\u009Eitím Programu si pečlivě přečtěte přilo\u009Eenou licenční smlouvu. Výběrem ní\u009Ee "
        u"uvedené mo\u009Enosti „Přijmout“ nebo pou\u009Eíváním Programu vyjadřujete souhlas s podmínkami této "
        u"smlouvy. Vyberete-li mo\u009Enost „Odmítnout“, instalace nebude dokončena a Program nebudete moci "
        u"pou\u009Eívat. ">,
    .ACCEPT_KEY = escaped<u"Přijmout">,
    .DECLINE_KEY = escaped<u"Odmítnout">,
    .PRINT_KEY = escaped<u"Vytisknout">,
    .YES_KEY = escaped<u"Ano">,
    .NO_KEY = escaped<u"Ne">,
    .DECLINED_KEY = escaped<
        u"Rozhodli jste se licenční smlouvu odmítnout. Instalace nebyla dokončena. Instalaci mů\u009Eete později "
        u"spustit znovu, nebo mů\u009Eete Program vrátit straně, od které jste jej získali (společnosti VUR nebo "
        u"jejímu prodejci), a po\u009Eádat o vrácení peněz.">,
    .CONFIRMDECLINE_KEY = escaped<u"Jste si jisti, \u009Ee chcete licenční smlouvu odmítnout?">,
    .CLILANGMENU_KEY = escaped<
        u"Licenèní smlouva o užívání softwaru\n"
        u"1. Èeština \n"
        u"2. Angliètina\n"
        u"3. Francouzština\n"
        u"4. Nìmèina\n"
        u"5. Italština\n"
        u"6. Polština\n"
        u"7. Portugalština\n"
        u"8. Španìlština\n"
        u"9. Tureètina\n">,
    .CLILANGMSG_KEY = escaped<u"Zadejte číslo odpovídající jazyku, který si přejete pou\u009Eívat.\n">,
    .CLITITLE_KEY = escaped<u"Licenční smlouva o\u00A0užívání softwaru">,
    .CLIINTROMSG_KEY = escaped<
        u"Stisknutím klávesy Enter zobrazíte licenční smlouvu na va\u009Aí obrazovce. Před instalací Programu si "
        u"smlouvu pečlivě přečtěte. Po přečtení smlouvy budete mít mo\u009Enost ji přijmout, nebo odmítnout. Pokud se "
        u"rozhodnete smlouvu odmítnout, instalace nebude dokončena a Program nebudete moci pou\u009Eívat.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Stiskněte klávesu Enter, chcete-li pokračovat v\u00A0prohlížení licenční smlouvy, nebo zadejte jedno "
        u"z\u00A0těchto čísel: \"1\"\u00A0Přijmout smlouvu, \"2\"\u00A0Odmítnout smlouvu, \"99\"\u00A0Vrátit se na "
        u"předchozí obrazovku.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Rozhodli jste se licenční smlouvu odmítnout. Instalace Programu bude ukončena. Pokud licenční smlouvu "
        u"opravdu chcete odmítnout, potvrďte to opětovným zadáním čísla \"2\". V\u00A0opačném případě zadejte \"1\", "
        u"chcete-li licenční smlouvu přijmout, nebo stiskněte klávesu Enter, chcete-li pokračovat ve čtení smlouvy.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Dokončili jste prohlížení licenční smlouvy. Zadejte \"1\", chcete-li smlouvu přijmout, nebo \"2\", chcete-li "
        u"ji odmítnout. Pokud se rozhodnete smlouvu odmítnout, instalace nebude dokončena a\u00A0Program nebudete moci "
        u"používat.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Došlo k\u00A0chybě tiskárny. Licenční smlouva nebude vytištěna.">,
    .LANGNAME_KEY = escaped<u"Čeština">,
    .NONVURTERMS_KEY = escaped<u"Přečíst podmínky jiných stran než společnosti VUR">,
};

}  // namespace zev::catalogues
