#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts zh{
    .getLanguageCode = "zh",
    .NUMERIC1_KEY = escaped<u"12">,
    .TITLE_KEY = escaped<u"软件许可协议">,
    .INSTRUCTIONS_KEY = escaped<
        u"使用本程序之前，请仔细阅读随附的许可协议。"
        u"选择下面的“接受”或使用本程序，即表示您同意接受本许可协议的条款。"
        u"如果您选择“拒绝”，安装将不会完成，您也将无法使用本程序。 ">,
    .ACCEPT_KEY = escaped<u"接受">,
    .DECLINE_KEY = escaped<u"拒绝">,
    .PRINT_KEY = escaped<u"打印">,
    .YES_KEY = escaped<u"是">,
    .NO_KEY = escaped<u"否">,
    .DECLINED_KEY = escaped<
        u"您已选择拒绝许可协议。安装未完成。您可以稍后重新开始安装，"
        u"也可以将本程序退还给向您提供本程序的一方（VUR 或其经销商），并要求退款。">,
    .CONFIRMDECLINE_KEY = escaped<u"您确实要拒绝许可协议吗？">,
    .CLILANGMENU_KEY = englishTwelveLanguages,
    .CLILANGMSG_KEY = englishLanguageQuestion,
    .CLITITLE_KEY = englishTitle,
    .CLIINTROMSG_KEY = escaped<
        u"请按 Enter 键，以在屏幕上显示许可协议。安装本程序之前，请仔细阅读许可协议。"
        u"阅读之后，您可以选择接受或拒绝许可协议。如果您选择拒绝许可协议，安装将不会完成，您也将无法使用本程序。\n">,
    .CLICONTMSG_KEY = escaped<
        u"请按 Enter 键继续查看许可协议，或输入以下数字之一："
        u"\"1\" 接受许可协议, \"2\" 拒绝许可协议, \"99\" 返回上一屏。\n">,
    .CLICFMMSG_KEY = escaped<
        u"您已选择拒绝许可协议。本程序的安装将终止。如果您确定要拒绝许可协议，请再次输入 \"2\" 确认。"
        u"否则，请输入 \"1\" 接受许可协议，或按 Enter 键继续阅读许可协议。\n">,
    .CLIACCMSG_KEY = escaped<
        u"您已查看完许可协议。请输入 \"1\" 接受许可协议，或输入 \"2\" 拒绝许可协议。"
        u"如果您选择拒绝许可协议，安装将不会完成，您也将无法使用本程序。\n">,
    .NUMERIC2_KEY = escaped<u"18">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"打印机发生错误，将不会打印许可协议。">,
    .LANGNAME_KEY = escaped<u"简体中文">,
    .NONVURTERMS_KEY = escaped<u"阅读 VUR 以外的第三方条款">,
};

}  // namespace zev::catalogues
