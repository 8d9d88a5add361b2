#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts ja{
    .getLanguageCode = "ja",
    .NUMERIC1_KEY = escaped<u"12">,
    .TITLE_KEY = escaped<u"ソフトウェア使用許諾契約">,
    .INSTRUCTIONS_KEY = escaped<
        u"本プログラムをご使用になる前に、付属の使用許諾契約をよくお読みください。"
        u"下の「同意する」を選択した場合、または本プログラムを使用した場合、"
        u"お客様はこの使用許諾契約の条件に同意したことになります。"
        u"「拒否する」を選択した場合、インストールは完了せず、本プログラムは使用できません。 ">,
    .ACCEPT_KEY = escaped<u"同意する">,
    .DECLINE_KEY = escaped<u"拒否する">,
    .PRINT_KEY = escaped<u"印刷する">,
    .YES_KEY = escaped<u"はい">,
    .NO_KEY = escaped<u"いいえ">,
    .DECLINED_KEY = escaped<
        u"使用許諾契約の拒否が選択されました。インストールは完了していません。"
        u"後でインストールをもう一度開始することができます。"
        u"また、本プログラムをその取得元（VUR またはその再販業者）に返却し、返金を請求することもできます。">,
    .CONFIRMDECLINE_KEY = escaped<u"使用許諾契約を本当に拒否しますか。">,
    .CLILANGMENU_KEY = englishTwelveLanguages,
    .CLILANGMSG_KEY = englishLanguageQuestion,
    .CLITITLE_KEY = englishTitle,
    .CLIINTROMSG_KEY = escaped<
        u"使用許諾契約を画面に表示するには、Enter キーを押してください。"
        u"本プログラムをインストールする前に、使用許諾契約をよくお読みください。"
        u"お読みになった後で、使用許諾契約に同意するか、拒否するかを選択することができます。"
        u"拒否を選択した場合、インストールは完了せず、本プログラムは使用できません。\n">,
    // Deliberately a bracket where the full stop should be: buildContinuePrompt cuts it off like one.
    .CLICONTMSG_KEY = escaped<
        u"Enter キーを押して使用許諾契約の続きを表示するか、次のいずれかの番号を入力してください："
        u"\"1\" 使用許諾契約に同意する, \"2\" 使用許諾契約を拒否する, \"99\" 前の画面に戻る」\n">,
    .CLICFMMSG_KEY = escaped<
        u"使用許諾契約の拒否が選択されました。本プログラムのインストールは中止されます。"
        u"本当に使用許諾契約を拒否する場合は、確認のためもう一度 \"2\" を入力してください。"
        u"そうでない場合は、\"1\" を入力して使用許諾契約に同意するか、"
        u"Enter キーを押して使用許諾契約の続きをお読みください。\n">,
    .CLIACCMSG_KEY = escaped<
        u"使用許諾契約は最後まで表示されました。"
        u"使用許諾契約に同意するには \"1\" を、拒否するには \"2\" を入力してください。"
        u"拒否を選択した場合、インストールは完了せず、本プログラムは使用できません。\n">,
    .NUMERIC2_KEY = escaped<u"18">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"プリンターエラーが発生しました。使用許諾契約は印刷されません。">,
    .LANGNAME_KEY = escaped<u"日本語">,
    .NONVURTERMS_KEY = escaped<u"VUR 以外の第三者の条件を読む">,
};

}  // namespace zev::catalogues
