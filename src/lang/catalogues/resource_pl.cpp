#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts pl{
    .getLanguageCode = "pl",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = escaped<u"Umowa licencyjna na oprogramowanie">,
    .INSTRUCTIONS_KEY = escaped<
        u"Przed rozpoczęciem korzystania z Programu należy uważnie przeczytać dołączoną umowę licencyjną. Wybierając "
        u"poniżej opcję „Akceptuj” lub korzystając z Programu, Użytkownik wyraża zgodę na warunki tej umowy. Jeśli "
        u"Użytkownik wybierze opcję „Odrzuć”, instalacja nie zostanie ukończona i nie będzie można korzystać z "
        u"Programu. ">,
    .ACCEPT_KEY = escaped<u"Akceptuj">,
    .DECLINE_KEY = escaped<u"Odrzuć">,
    .PRINT_KEY = escaped<u"Drukuj">,
    .YES_KEY = escaped<u"Tak">,
    .NO_KEY = escaped<u"Nie">,
    .DECLINED_KEY = escaped<
        u"Wybrano odrzucenie umowy licencyjnej. Instalacja nie została ukończona. Można później ponownie "
        u"rozpocząć instalację albo zwrócić Program podmiotowi, od którego został nabyty (firmie VUR lub jej "
        u"odsprzedawcy), i wystąpić o zwrot zapłaconej kwoty.">,
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
        u"należy uważnie przeczytać umowę. Po przeczytaniu umowy będzie można ją zaakceptować lub odrzucić. W "
        u"przypadku odrzucenia umowy instalacja nie zostanie ukończona i nie będzie można korzystać z Programu.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Należy nacisnąć klawisz Enter, aby kontynuować przeglądanie umowy licencyjnej, albo wpisać jeden z "
        u"następujących numerów: \"1\" Akceptuj umowę, \"2\" Odrzuć umowę, \"99\" Wróć do poprzedniego ekranu.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Wybrano odrzucenie umowy licencyjnej. Instalacja Programu zostanie przerwana. Jeśli umowa licencyjna na "
        u"pewno ma zostać odrzucona, należy to potwierdzić, ponownie wpisując \"2\". W przeciwnym razie "
        u"należy wpisać \"1\", aby zaakceptować umowę licencyjną, albo nacisnąć klawisz Enter, aby kontynuować "
        u"czytanie umowy.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Zakończono przeglądanie umowy licencyjnej. Należy wpisać \"1\", aby zaakceptować umowę, albo \"2\", aby ją "
        u"odrzucić. W przypadku odrzucenia umowy instalacja nie zostanie ukończona i nie będzie można korzystać z "
        u"Programu.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Wystąpił błąd drukarki. Umowa licencyjna nie zostanie wydrukowana.">,
    .LANGNAME_KEY = escaped<u"Polski">,
    .NONVURTERMS_KEY = escaped<u"Przeczytaj warunki podmiotów innych niż VUR">,
};

}  // namespace zev::catalogues
