#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts pl{
    .getLanguageCode = "pl",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = escaped<u"Umowa licencyjna na oprogramowanie">,
    .INSTRUCTIONS_KEY = escaped<
        u"Przed rozpoczęciem korzystania z\u00A0Programu należy uważnie przeczytać dołączoną umowę licencyjną. "
        u"Wybierając poniżej opcję „Akceptuj” lub korzystając z\u00A0Programu, Użytkownik wyraża zgodę na warunki tej "
        u"umowy. Jeśli Użytkownik wybierze opcję „Odrzuć”, instalacja nie zostanie ukończona i\u00A0nie będzie można "
        u"korzystać z\u00A0Programu. ">,
    .ACCEPT_KEY = escaped<u"Akceptuj">,
    .DECLINE_KEY = escaped<u"Odrzuć">,
    .PRINT_KEY = escaped<u"Drukuj">,
    .YES_KEY = escaped<u"Tak">,
    .NO_KEY = escaped<u"Nie">,
    .DECLINED_KEY = escaped<
        u"Wybrano odrzucenie umowy licencyjnej. Instalacja nie została ukończona. Można później ponownie rozpocząć "
        u"instalację albo zwrócić Program podmiotowi, od którego został nabyty (firmie VUR lub jej odsprzedawcy), "
        u"i\u00A0wystąpić o\u00A0zwrot zapłaconej kwoty.">,
    .CONFIRMDECLINE_KEY = escaped<u"Czy na pewno odrzucić umowę licencyjną?">,
    .CLILANGMENU_KEY = escaped<
        u"Umowa licencyjna na oprogramowanie\n"
        u"1. Czeski \n"
        u"2. Angielski\n"
        u"3. Francuski\n"
        u"4. Niemiecki\n"
        u"5. Włoski\n"
        u"6. Polski\n"
        u"7. Portugalski\n"
        u"8. Hiszpański\n"
        u"9. Turecki\n">,
    .CLILANGMSG_KEY = escaped<u"Należy wpisać numer odpowiadający preferowanemu językowi.\n">,
    .CLITITLE_KEY = escaped<u"Umowa licencyjna na oprogramowanie">,
    .CLIINTROMSG_KEY = escaped<
        u"Aby wyświetlić umowę licencyjną na ekranie, należy nacisnąć klawisz Enter. Przed zainstalowaniem Programu "
        u"należy uważnie przeczytać umowę. Po przeczytaniu umowy będzie można ją zaakceptować lub odrzucić. "
        u"W\u00A0przypadku odrzucenia umowy instalacja nie zostanie ukończona i\u00A0nie będzie można korzystać "
        u"z\u00A0Programu.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Należy nacisnąć klawisz Enter, aby kontynuować przeglądanie umowy licencyjnej, albo wpisać jeden "
        u"z\u00A0następujących numerów: \"1\"\u00A0Akceptuj umowę, \"2\"\u00A0Odrzuć umowę, \"99\"\u00A0Wróć do "
        u"poprzedniego ekranu.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Wybrano odrzucenie umowy licencyjnej. Instalacja Programu zostanie przerwana. Jeśli umowa licencyjna na "
        u"pewno ma zostać odrzucona, należy to potwierdzić, ponownie wpisując \"2\". W\u00A0przeciwnym razie należy "
        u"wpisać \"1\", aby zaakceptować umowę licencyjną, albo nacisnąć klawisz Enter, aby kontynuować czytanie "
        u"umowy.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Zakończono przeglądanie umowy licencyjnej. Należy wpisać \"1\", aby zaakceptować umowę, albo \"2\", aby ją "
        u"odrzucić. W\u00A0przypadku odrzucenia umowy instalacja nie zostanie ukończona i\u00A0nie będzie można "
        u"korzystać z\u00A0Programu.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Wystąpił błąd drukarki. Umowa licencyjna nie zostanie wydrukowana.">,
    .LANGNAME_KEY = escaped<u"Polski">,
    .NONVURTERMS_KEY = escaped<u"Przeczytaj warunki podmiotów innych niż VUR">,
};

}  // namespace zev::catalogues
