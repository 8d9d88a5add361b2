#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts ko{
    .getLanguageCode = "ko",
    .NUMERIC1_KEY = escaped<u"12">,
    .TITLE_KEY = escaped<u"소프트웨어 사용권 계약">,
    .INSTRUCTIONS_KEY = escaped<
        u"본 프로그램을 사용하기 전에 함께 제공된 사용권 계약을 주의 깊게 읽으십시오. 아래에서 \"동의\"를 선택하거나 "
        u"본 프로그램을 사용하면 귀하는 본 사용권 계약의 조건에 동의하는 것입니다. "
        u"\"거부\"를 선택하면 설치가 완료되지 않으며 본 프로그램을 사용할 수 없습니다. ">,
    .ACCEPT_KEY = escaped<u"동의">,
    .DECLINE_KEY = escaped<u"거부">,
    .PRINT_KEY = escaped<u"인쇄">,
    .YES_KEY = escaped<u"예">,
    .NO_KEY = escaped<u"아니요">,
    .DECLINED_KEY = escaped<
        u"사용권 계약을 거부하기로 선택하셨습니다. 설치가 완료되지 않았습니다. 나중에 설치를 다시 시작하거나, "
        u"본 프로그램을 그 제공자(VUR 또는 그 재판매업체)에게 반환하고 환불을 요청할 수 있습니다.">,
    .CONFIRMDECLINE_KEY = escaped<u"사용권 계약을 정말로 거부하시겠습니까?">,
    .CLILANGMENU_KEY = englishTwelveLanguages,
    .CLILANGMSG_KEY = englishLanguageQuestion,
    .CLITITLE_KEY = englishTitle,
    .CLIINTROMSG_KEY = escaped<
        u"사용권 계약을 화면에 표시하려면 Enter 키를 누르십시오. "
        u"본 프로그램을 설치하기 전에 사용권 계약을 주의 깊게 읽으십시오. "
        u"사용권 계약을 읽은 후에 동의 또는 거부를 선택할 수 있습니다. "
        u"사용권 계약을 거부하기로 선택하면 설치가 완료되지 않으며 본 프로그램을 사용할 수 없습니다.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Enter 키를 눌러 사용권 계약을 계속 보거나 다음 번호 중 하나를 입력하십시오: "
        u"\"1\" 사용권 계약 동의, \"2\" 사용권 계약 거부, \"99\" 이전 화면으로 이동.\n">,
    .CLICFMMSG_KEY = escaped<
        u"사용권 계약을 거부하기로 선택하셨습니다. 본 프로그램의 설치가 중단됩니다. "
        u"정말로 사용권 계약을 거부하려면 \"2\"를 다시 입력하여 확인하십시오. "
        u"그렇지 않으면 \"1\"을 입력하여 사용권 계약에 동의하거나, Enter 키를 눌러 사용권 계약을 계속 읽으십시오.\n">,
    .CLIACCMSG_KEY = escaped<
        u"사용권 계약을 끝까지 보셨습니다. 사용권 계약에 동의하려면 \"1\"을, 거부하려면 \"2\"를 입력하십시오. "
        u"사용권 계약을 거부하기로 선택하면 설치가 완료되지 않으며 본 프로그램을 사용할 수 없습니다.\n">,
    .NUMERIC2_KEY = escaped<u"18">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"프린터 오류가 발생했습니다. 사용권 계약이 인쇄되지 않습니다.">,
    .LANGNAME_KEY = escaped<u"한국어">,
    .NONVURTERMS_KEY = escaped<u"VUR 이외 제3자의 조건 읽기">,
};

}  // namespace zev::catalogues
