#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts it{
    .getLanguageCode = "it",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = latin1<u"Contratto di licenza software">,
    .INSTRUCTIONS_KEY = latin1<
        u"Si prega di leggere attentamente il contratto di licenza allegato prima di utilizzare il Programma. "
        u"Selezionando \"Accetta\" qui sotto o utilizzando il Programma, l'utente dichiara di accettare i termini del "
        u"presente contratto. Se si seleziona \"Rifiuta\", l'installazione non verrà completata e non sarà possibile "
        u"utilizzare il Programma. ">,
    .ACCEPT_KEY = escaped<u"Accetta">,
    .DECLINE_KEY = escaped<u"Rifiuta">,
    .PRINT_KEY = escaped<u"Stampa">,
    .YES_KEY = latin1<u"Sì">,
    .NO_KEY = latin1<u"No">,
    .DECLINED_KEY = latin1<
        u"Si è scelto di rifiutare il contratto di licenza. L'installazione non è stata completata. È possibile "
        u"riavviare l'installazione in un secondo momento oppure restituire il Programma alla parte (VUR o un suo "
        u"rivenditore) dalla quale è stato acquisito e richiederne il rimborso.">,
    .CONFIRMDECLINE_KEY = latin1<u"Si desidera davvero rifiutare il contratto di licenza?">,
    .CLILANGMENU_KEY = latin1<
        u"Contratto di licenza software\n"
        u"1. Ceco \n"
        u"2. Inglese\n"
        u"3. Francese\n"
        u"4. Tedesco\n"
        u"5. Italiano\n"
        u"6. Polacco\n"
        u"7. Portoghese\n"
        u"8. Spagnolo\n"
        u"9. Turco\n">,
    .CLILANGMSG_KEY = escaped<u"Digitare il numero corrispondente alla lingua desiderata.\n">,
    .CLITITLE_KEY = escaped<u"Contratto di licenza software">,
    .CLIINTROMSG_KEY = escaped<
        u"Premere Invio per visualizzare il contratto di licenza sullo schermo. Si prega di leggere attentamente il "
        u"contratto prima di installare il Programma. Dopo la lettura sarà possibile accettare o rifiutare il "
        u"contratto. Se si sceglie di rifiutare il contratto, l'installazione non verrà completata e non sarà "
        u"possibile utilizzare il Programma.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Premere Invio per continuare a visualizzare il contratto di licenza oppure digitare uno dei numeri seguenti: "
        u"\"1\"\u00A0Accetta il contratto, \"2\"\u00A0Rifiuta il contratto, \"99\"\u00A0Torna alla schermata "
        u"precedente.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Si è scelto di rifiutare il contratto di licenza. L'installazione del Programma verrà interrotta. Se si è "
        u"certi di voler rifiutare il contratto di licenza, digitare di nuovo \"2\"\u00A0per confermare. In caso "
        u"contrario, digitare \"1\"\u00A0per accettare il contratto di licenza oppure premere Invio per continuare a "
        u"leggere il contratto.\n">,
    .CLIACCMSG_KEY = escaped<
        u"La visualizzazione del contratto di licenza è terminata. Digitare \"1\"\u00A0per accettare il contratto o "
        u"\"2\"\u00A0per rifiutarlo. Se si sceglie di rifiutare il contratto, l'installazione non verrà completata e "
        u"non sarà possibile utilizzare il Programma.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<
        u"Si è verificato un errore della stampante. Il contratto di licenza non verrà stampato.">,
    .LANGNAME_KEY = escaped<u"Italiano">,
    .NONVURTERMS_KEY = escaped<u"Leggi i termini di soggetti diversi da VUR">,
};

}  // namespace zev::catalogues
