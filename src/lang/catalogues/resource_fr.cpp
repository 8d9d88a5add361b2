#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts fr{
    .getLanguageCode = "fr",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = latin1<u"Contrat de licence de logiciel">,
    .INSTRUCTIONS_KEY = latin1<
        u"Veuillez lire attentivement le contrat de licence ci-joint avant d'utiliser le Programme. En sélectionnant "
        u"«\u00A0Accepter\u00A0» ci-dessous ou en utilisant le Programme, vous déclarez accepter les conditions du "
        u"présent contrat. Si vous sélectionnez «\u00A0Refuser\u00A0», l'installation ne sera pas menée à son terme et "
        u"vous ne pourrez pas utiliser le Programme. ">,
    .ACCEPT_KEY = escaped<u"Accepter">,
    .DECLINE_KEY = escaped<u"Refuser">,
    .PRINT_KEY = escaped<u"Imprimer">,
    .YES_KEY = latin1<u"Oui">,
    .NO_KEY = latin1<u"Non">,
    .DECLINED_KEY = latin1<
        u"Vous avez choisi de refuser le contrat de licence. L'installation n'a pas été menée à son terme. Vous pouvez "
        u"relancer l'installation ultérieurement ou retourner le Programme à la partie (VUR ou son revendeur) "
        u"auprès de laquelle il a été acquis et en demander le remboursement.">,
    .CONFIRMDECLINE_KEY = latin1<u"Souhaitez-vous vraiment refuser le contrat de licence\u00A0?">,
    .CLILANGMENU_KEY = latin1<
        u"Contrat de licence de logiciel\n"
        u"1. Tchèque \n"
        u"2. Anglais\n"
        u"3. Français\n"
        u"4. Allemand\n"
        u"5. Italien\n"
        u"6. Polonais\n"
        u"7. Portugais\n"
        u"8. Espagnol\n"
        u"9. Turc\n">,
    .CLILANGMSG_KEY = escaped<u"Veuillez saisir le numéro correspondant à la langue de votre choix.\n">,
    .CLITITLE_KEY = escaped<u"Contrat de licence de logiciel">,
    .CLIINTROMSG_KEY = escaped<
        u"Appuyez sur Entrée pour afficher le contrat de licence à l'écran. Veuillez lire attentivement le contrat "
        u"avant d'installer le Programme. Après avoir lu le contrat, vous aurez la possibilité de l'accepter ou de le "
        u"refuser. Si vous choisissez de refuser le contrat, l'installation ne sera pas menée à son terme et vous ne "
        u"pourrez pas utiliser le Programme.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Appuyez sur Entrée pour poursuivre la consultation du contrat de licence ou saisissez l'un des numéros "
        u"suivants\u00A0: \"1\"\u00A0Accepter le contrat, \"2\"\u00A0Refuser le contrat, \"99\"\u00A0Revenir à l'écran "
        u"précédent.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Vous avez choisi de refuser le contrat de licence. Il sera mis fin à l'installation du Programme. Si vous "
        u"voulez vraiment refuser le contrat de licence, saisissez de nouveau \"2\"\u00A0pour confirmer. Sinon, "
        u"saisissez \"1\"\u00A0pour accepter le contrat de licence, ou appuyez sur Entrée pour poursuivre la lecture "
        u"du contrat.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Vous avez terminé la consultation du contrat de licence. Saisissez \"1\"\u00A0pour accepter le contrat ou "
        u"\"2\"\u00A0pour le refuser. Si vous choisissez de refuser le contrat, l'installation ne sera pas menée à son "
        u"terme et vous ne pourrez pas utiliser le Programme.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Une erreur d'imprimante s'est produite. Le contrat de licence ne sera pas imprimé.">,
    .LANGNAME_KEY = escaped<u"Français">,
    .NONVURTERMS_KEY = escaped<u"Lire les conditions autres que celles de VUR">,
};

}  // namespace zev::catalogues
