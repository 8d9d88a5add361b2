#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts de{
    .getLanguageCode = "de",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = latin1<u"Softwarelizenzvereinbarung">,
    .INSTRUCTIONS_KEY = latin1<
        u"Bitte lesen Sie die beigefügte Lizenzvereinbarung sorgfältig durch, bevor Sie das Programm verwenden. Indem "
        u"Sie unten \"Annehmen\" auswählen oder das Programm verwenden, erklären Sie sich mit den Bedingungen "
        u"dieser Vereinbarung einverstanden. Wenn Sie \"Ablehnen\" auswählen, wird die Installation nicht "
        u"abgeschlossen und Sie können das Programm nicht verwenden. ">,
    .ACCEPT_KEY = escaped<u"Annehmen">,
    .DECLINE_KEY = escaped<u"Ablehnen">,
    .PRINT_KEY = escaped<u"Drucken">,
    .YES_KEY = latin1<u"Ja">,
    .NO_KEY = latin1<u"Nein">,
    .DECLINED_KEY = latin1<
        u"Sie haben sich entschieden, die Lizenzvereinbarung abzulehnen. Die Installation wurde nicht abgeschlossen. "
        u"Sie können die Installation später erneut starten oder das Programm an den Vertragspartner (VUR oder einen "
        u"Wiederverkäufer von VUR), von dem es erworben wurde, zurückgeben und um eine Rückerstattung bitten.">,
    .CONFIRMDECLINE_KEY = latin1<u"Möchten Sie die Lizenzvereinbarung wirklich ablehnen?">,
    .CLILANGMENU_KEY = latin1<
        u"Softwarelizenzvereinbarung\n"
        u"1. Tschechisch \n"
        u"2. Englisch\n"
        u"3. Französisch\n"
        u"4. Deutsch\n"
        u"5. Italienisch\n"
        u"6. Polnisch\n"
        u"7. Portugiesisch\n"
        u"8. Spanisch\n"
        u"9. Türkisch\n">,
    .CLILANGMSG_KEY = escaped<u"Bitte geben Sie die Zahl ein, die der gewünschten Sprache entspricht.\n">,
    .CLITITLE_KEY = escaped<u"Softwarelizenzvereinbarung">,
    .CLIINTROMSG_KEY = escaped<
        u"Drücken Sie die Eingabetaste, um die Lizenzvereinbarung auf dem Bildschirm anzuzeigen. Bitte lesen Sie die "
        u"Vereinbarung sorgfältig durch, bevor Sie das Programm installieren. Nach dem Lesen haben Sie die "
        u"Möglichkeit, die Vereinbarung anzunehmen oder abzulehnen. Wenn Sie die Vereinbarung ablehnen, wird die "
        u"Installation nicht abgeschlossen und Sie können das Programm nicht verwenden.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Drücken Sie die Eingabetaste, um die Lizenzvereinbarung weiter anzuzeigen, oder geben Sie eine der folgenden "
        u"Zahlen ein: \"1\"\u00A0Vereinbarung annehmen, \"2\"\u00A0Vereinbarung ablehnen, \"99\"\u00A0Zur vorherigen "
        u"Bildschirmseite zurückkehren.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Sie haben sich entschieden, die Lizenzvereinbarung abzulehnen. Die Installation des Programms wird "
        u"abgebrochen. Wenn Sie sicher sind, dass Sie die Lizenzvereinbarung ablehnen möchten, geben Sie zur "
        u"Bestätigung erneut \"2\"\u00A0ein. Andernfalls geben Sie \"1\"\u00A0ein, um die Lizenzvereinbarung "
        u"anzunehmen, oder drücken Sie die Eingabetaste, um die Vereinbarung weiterzulesen.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Die Lizenzvereinbarung wurde vollständig angezeigt. Geben Sie \"1\"\u00A0ein, um die Vereinbarung "
        u"anzunehmen, oder \"2\", um sie abzulehnen. Wenn Sie die Vereinbarung ablehnen, wird die Installation nicht "
        u"abgeschlossen und Sie können das Programm nicht verwenden.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Es ist ein Druckerfehler aufgetreten. Die Lizenzvereinbarung wird nicht gedruckt.">,
    .LANGNAME_KEY = escaped<u"Deutsch">,
    .NONVURTERMS_KEY = escaped<u"Bedingungen anderer Anbieter als VUR lesen">,
};

}  // namespace zev::catalogues
