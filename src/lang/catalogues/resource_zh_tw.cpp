#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts zh_TW{
    .getLanguageCode = "zh_TW",
    .NUMERIC1_KEY = escaped<u"12">,
    .TITLE_KEY = escaped<u"軟體授權合約">,
    .INSTRUCTIONS_KEY = escaped<
        u"使用本程式之前，請先仔細閱讀隨附的授權合約。"
        u"選取下方的「接受」或使用本程式，即表示您同意接受本授權合約的條款。"
        u"若您選取「拒絕」，安裝作業將不會完成，您也將無法使用本程式。 ">,
    .ACCEPT_KEY = escaped<u"接受">,
    .DECLINE_KEY = escaped<u"拒絕">,
    .PRINT_KEY = escaped<u"列印">,
    .YES_KEY = escaped<u"是">,
    .NO_KEY = escaped<u"否">,
    .DECLINED_KEY = escaped<
        u"您已選擇拒絕授權合約。安裝作業並未完成。您可以稍後重新開始安裝，"
        u"也可以將本程式退還給當初提供本程式的一方（VUR 或其經銷商），並要求退款。">,
    .CONFIRMDECLINE_KEY = escaped<u"您確定要拒絕授權合約嗎？">,
    .CLILANGMENU_KEY = englishTwelveLanguages,
    .CLILANGMSG_KEY = englishLanguageQuestion,
    .CLITITLE_KEY = englishTitle,
    .CLIINTROMSG_KEY = escaped<
        u"請按 Enter 鍵在螢幕上顯示授權合約。安裝本程式之前，請先仔細閱讀授權合約。"
        u"閱讀之後，您將可選擇接受或拒絕授權合約。若您選擇拒絕授權合約，安裝作業將不會完成，您也將無法使用本程式。\n">,
    .CLICONTMSG_KEY = escaped<
        u"請按 Enter 鍵繼續檢視授權合約，或輸入下列其中一個數字："
        u"\"1\" 接受授權合約, \"2\" 拒絕授權合約, \"99\" 返回上一個畫面。\n">,
    .CLICFMMSG_KEY = escaped<
        u"您已選擇拒絕授權合約。本程式的安裝作業將終止。若確定要拒絕授權合約，請再次輸入 \"2\" 以確認。"
        u"否則請輸入 \"1\" 接受授權合約，或按 Enter 鍵繼續閱讀授權合約。\n">,
    .CLIACCMSG_KEY = escaped<
        u"您已檢視完授權合約。請輸入 \"1\" 接受授權合約，或輸入 \"2\" 拒絕授權合約。"
        u"若您選擇拒絕授權合約，安裝作業將不會完成，您也將無法使用本程式。\n">,
    .NUMERIC2_KEY = escaped<u"18">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"印表機發生錯誤。將不會列印授權合約。">,
    .LANGNAME_KEY = escaped<u"繁體中文">,
    .NONVURTERMS_KEY = escaped<u"閱讀 VUR 以外第三方的條款">,
};

}  // namespace zev::catalogues
