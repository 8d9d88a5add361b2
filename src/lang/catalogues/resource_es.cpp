#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts es{
    .getLanguageCode = "es",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = latin1<u"Contrato de licencia de software">,
    .INSTRUCTIONS_KEY = latin1<
        u"Lea detenidamente el contrato de licencia adjunto antes de utilizar el Programa. Al seleccionar \"Aceptar\" "
        u"más abajo o al utilizar el Programa, usted acepta los términos de este contrato. Si selecciona \"Rechazar\", "
        u"la instalación no se completará y usted no podrá utilizar el Programa. ">,
    .ACCEPT_KEY = escaped<u"Aceptar">,
    .DECLINE_KEY = escaped<u"Rechazar">,
    .PRINT_KEY = escaped<u"Imprimir">,
    .YES_KEY = latin1<u"Sí">,
    .NO_KEY = latin1<u"No">,
    .DECLINED_KEY = latin1<
        u"Ha decidido rechazar el contrato de licencia. La instalación no se ha completado. Puede volver a iniciar la "
        u"instalación más adelante, o bien devolver el Programa a la parte (VUR o uno de sus revendedores) de la que "
        u"se adquirió y solicitar un reembolso.">,
    .CONFIRMDECLINE_KEY = latin1<u"¿Realmente desea rechazar el contrato de licencia?">,
    .CLILANGMENU_KEY = latin1<
        u"Contrato de licencia de software\n"
        u"1. Checo \n"
        u"2. Inglés\n"
        u"3. Francés\n"
        u"4. Alemán\n"
        u"5. Italiano\n"
        u"6. Polaco\n"
        u"7. Portugués\n"
        u"8. Español\n"
        u"9. Turco\n">,
    .CLILANGMSG_KEY = escaped<u"Escriba el número que corresponda al idioma que prefiera.\n">,
    .CLITITLE_KEY = escaped<u"Contrato de licencia de software">,
    .CLIINTROMSG_KEY = escaped<
        u"Pulse Intro para mostrar el contrato de licencia en la pantalla. Lea detenidamente el contrato antes de "
        u"instalar el Programa. Una vez leído el contrato, tendrá la posibilidad de aceptarlo o rechazarlo. Si decide "
        u"rechazar el contrato, la instalación no se completará y usted no podrá utilizar el Programa.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Pulse Intro para seguir viendo el contrato de licencia o escriba uno de los números siguientes: "
        u"\"1\"\u00A0Aceptar el contrato, \"2\"\u00A0Rechazar el contrato, \"99\"\u00A0Volver a la pantalla "
        u"anterior.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Ha decidido rechazar el contrato de licencia. La instalación del Programa se cancelará. Si tiene la certeza "
        u"de que desea rechazar el contrato de licencia, escriba \"2\"\u00A0de nuevo para confirmar. De lo contrario, "
        u"escriba \"1\"\u00A0para aceptar el contrato de licencia o pulse Intro para seguir leyendo el contrato.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Ha terminado de ver el contrato de licencia. Escriba \"1\"\u00A0para aceptar el contrato o \"2\"\u00A0para "
        u"rechazarlo. Si decide rechazar el contrato, la instalación no se completará y usted no podrá utilizar el "
        u"Programa.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Se ha producido un error de impresora. El contrato de licencia no se imprimirá.">,
    .LANGNAME_KEY = escaped<u"Español">,
    .NONVURTERMS_KEY = escaped<u"Leer los términos que no son de VUR">,
};

}  // namespace zev::catalogues
