#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts en{
    .getLanguageCode = "en",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = escaped<u"Software License Agreement">,
    .INSTRUCTIONS_KEY = escaped<
        u"Please read the accompanying license agreement carefully before using the Program. By selecting \"Accept\" "
        u"below or using the Program, you agree to accept the terms of this agreement. If you select \"Decline\", "
        u"installation will not be completed and you will not be able to use the Program. ">,
    .ACCEPT_KEY = escaped<u"Accept">,
    .DECLINE_KEY = escaped<u"Decline">,
    .PRINT_KEY = escaped<u"Print">,
    .YES_KEY = escaped<u"Yes">,
    .NO_KEY = escaped<u"No">,
    .DECLINED_KEY = escaped<
        u"You have selected to decline the license agreement. Installation has not been completed. You may restart "
        u"installation later or you may return the Program to the party (VUR or its reseller) from whom it was "
        u"acquired and request a refund.">,
    .CONFIRMDECLINE_KEY = escaped<u"Do you really wish to decline the license agreement?">,
    .CLILANGMENU_KEY = escaped<
        u"Software Licensing Agreement\n"
        u"1. Czech \n"
        u"2. English\n"
        u"3. French\n"
        u"4. German\n"
        u"5. Italian\n"
        u"6. Polish\n"
        u"7. Portuguese\n"
        u"8. Spanish\n"
        u"9. Turkish\n">,
    .CLILANGMSG_KEY = englishLanguageQuestion,
    .CLITITLE_KEY = englishTitle,
    .CLIINTROMSG_KEY = escaped<
        u"Press Enter to display the license agreement on your screen. Please read the agreement carefully before "
        u"installing the Program. After reading the agreement, you will be given the opportunity to accept it or "
        u"decline it. If you choose to decline the agreement, installation will not be completed and you will not be "
        u"able to use the Program.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Press Enter to continue viewing the license agreement, or, Enter \"1\" to accept the agreement, \"2\" to "
        u"decline it or \"99\" to go back to the previous screen.\n">,
    .CLICFMMSG_KEY = escaped<
        u"You have chosen to decline the license agreement. Installation of the Program will be terminated. If you "
        u"are sure you want to decline the license agreement, enter \"2\" again to confirm. Otherwise, enter \"1\" to "
        u"accept the license agreement, or press Enter to continue reading the agreement.\n">,
    .CLIACCMSG_KEY = escaped<
        u"You have completed viewing the license agreement. Enter \"1\" to accept the agreement or \"2\" to decline "
        u"it. If you choose to decline the agreement, installation will not be completed and you will not be able to "
        u"use the Program.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"A printer error occurred. The License Agreement will not be printed.">,
    .LANGNAME_KEY = escaped<u"English">,
    .NONVURTERMS_KEY = escaped<u"Read non-VUR terms">,
};

}  // namespace zev::catalogues
