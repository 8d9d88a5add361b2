#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts pt{
    .getLanguageCode = "pt",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = latin1<u"Contrato de licença de software">,
    .INSTRUCTIONS_KEY = latin1<
        u"Leia atentamente o contrato de licença anexo antes de utilizar o Programa. A seleção de \"Aceitar\" abaixo "
        u"ou a utilização do Programa constitui a aceitação dos termos deste contrato. Se selecionar \"Recusar\", a "
        u"instalação não será concluída e não será possível utilizar o Programa. ">,
    .ACCEPT_KEY = escaped<u"Aceitar">,
    .DECLINE_KEY = escaped<u"Recusar">,
    .PRINT_KEY = escaped<u"Imprimir">,
    .YES_KEY = latin1<u"Sim">,
    .NO_KEY = latin1<u"Não">,
    .DECLINED_KEY = latin1<
        u"Optou por recusar o contrato de licença. A instalação não foi concluída. Pode iniciar novamente a "
        u"instalação mais tarde ou, então, devolver o Programa à entidade (a VUR ou um dos seus revendedores) da qual "
        u"este foi adquirido e solicitar um reembolso.">,
    .CONFIRMDECLINE_KEY = latin1<u"Deseja realmente recusar o contrato de licença?">,
    .CLILANGMENU_KEY = latin1<
        u"Contrato de licença de software\n"
        u"1. Checo \n"
        u"2. Inglês\n"
        u"3. Francês\n"
        u"4. Alemão\n"
        u"5. Italiano\n"
        u"6. Polonês\n"
        u"7. Português\n"
        u"8. Espanhol\n"
        u"9. Turco\n">,
    .CLILANGMSG_KEY = escaped<u"Insira o número correspondente ao idioma preferido.\n">,
    .CLITITLE_KEY = escaped<u"Contrato de licença de software">,
    .CLIINTROMSG_KEY = escaped<
        u"Pressione Enter para visualizar o contrato de licença no monitor. Leia atentamente o contrato antes de "
        u"instalar o Programa. Após a leitura, será possível aceitar ou recusar o contrato. Se optar por recusar o "
        u"contrato, a instalação não será concluída e não será possível utilizar o Programa.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Pressione Enter para continuar a visualização do contrato de licença ou insira um dos números seguintes: "
        u"\"1\"\u00A0Aceitar o contrato, \"2\"\u00A0Recusar o contrato, \"99\"\u00A0Voltar à página anterior.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Optou por recusar o contrato de licença. A instalação do Programa será cancelada. Se realmente deseja "
        u"recusar o contrato de licença, insira \"2\"\u00A0novamente para confirmar. Caso contrário, insira "
        u"\"1\"\u00A0para aceitar o contrato de licença ou pressione Enter para continuar a leitura do contrato.\n">,
    .CLIACCMSG_KEY = escaped<
        u"A visualização do contrato de licença foi concluída. Insira \"1\"\u00A0para aceitar o contrato ou "
        u"\"2\"\u00A0para recusá-lo. Se optar por recusar o contrato, a instalação não será concluída e não será "
        u"possível utilizar o Programa.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Ocorreu um erro na impressora. O contrato de licença não será impresso.">,
    .LANGNAME_KEY = escaped<u"Português">,
    .NONVURTERMS_KEY = escaped<u"Ler os termos que não são da VUR">,
};

}  // namespace zev::catalogues
