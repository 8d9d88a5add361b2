#include "lang/catalogues/catalogues.h"

namespace zev::catalogues {

constinit const CatalogueTexts tr{
    .getLanguageCode = "tr",
    .NUMERIC1_KEY = escaped<u"10">,
    .TITLE_KEY = escaped<u"Yazılım Lisans Sözleşmesi">,
    .INSTRUCTIONS_KEY = escaped<
        u"Lütfen Program'ı kullanmadan önce ekteki lisans sözleşmesini dikkatle okuyun. Aşağıdaki \"Kabul Et\" "
        u"seçeneğini seçerek veya Program'ı kullanarak bu sözleşmenin koşullarını kabul etmiş olursunuz. \"Reddet\" "
        u"seçeneğini seçerseniz kurulum tamamlanmayacak ve Program'ı kullanamayacaksınız. ">,
    .ACCEPT_KEY = escaped<u"Kabul Et">,
    .DECLINE_KEY = escaped<u"Reddet">,
    .PRINT_KEY = escaped<u"Yazdır">,
    .YES_KEY = escaped<u"Evet">,
    .NO_KEY = escaped<u"Hayır">,
    .DECLINED_KEY = escaped<
        u"Lisans sözleşmesini reddetmeyi seçtiniz. Kurulum tamamlanmadı. Kurulumu daha sonra yeniden başlatabilir veya "
        u"Program'ı edindiğiniz tarafa (VUR ya da bir VUR bayisi) geri vererek para iadesi talep edebilirsiniz.">,
    .CONFIRMDECLINE_KEY = escaped<u"Lisans sözleşmesini gerçekten reddetmek istiyor musunuz?">,
    .CLILANGMENU_KEY = escaped<
        u"Yazılım Lisans Sözleşmesi\n"
        u"1. Çekçe \n"
        u"2. İngilizce\n"
        u"3. Fransızca\n"
        u"4. Almanca\n"
        u"5. İtalyanca\n"
        u"6. Lehçe\n"
        u"7. Portekizce\n"
        u"8. İspanyolca\n"
        u"9. Türkçe\n">,
    .CLILANGMSG_KEY = escaped<u"Lütfen tercih ettiğiniz dile karşılık gelen numarayı girin.\n">,
    .CLITITLE_KEY = escaped<u"Yazılım Lisans Sözleşmesi">,
    .CLIINTROMSG_KEY = escaped<
        u"Lisans sözleşmesini ekranınızda görüntülemek için Enter tuşuna basın. Lütfen Program'ı kurmadan önce "
        u"sözleşmeyi dikkatle okuyun. Sözleşmeyi okuduktan sonra size sözleşmeyi kabul etme veya reddetme olanağı "
        u"sunulacaktır. Sözleşmeyi reddetmeyi seçerseniz kurulum tamamlanmayacak ve Program'ı kullanamayacaksınız.\n">,
    .CLICONTMSG_KEY = escaped<
        u"Lisans sözleşmesini görüntülemeye devam etmek için Enter tuşuna basın veya bir numara girin: "
        u"\"1\"\u00A0Sözleşmeyi kabul et, \"2\"\u00A0Sözleşmeyi reddet, \"99\"\u00A0Önceki ekrana dön.\n">,
    .CLICFMMSG_KEY = escaped<
        u"Lisans sözleşmesini reddetmeyi seçtiniz. Program kurulumu sonlandırılacaktır. Lisans sözleşmesini reddetmek "
        u"istediğinizden eminseniz bunu onaylamak için yeniden \"2\"\u00A0girin. Aksi takdirde lisans sözleşmesini "
        u"kabul etmek için \"1\"\u00A0girin veya sözleşmeyi okumaya devam etmek için Enter tuşuna basın.\n">,
    .CLIACCMSG_KEY = escaped<
        u"Lisans sözleşmesini görüntülemeyi tamamladınız. Sözleşmeyi kabul etmek için \"1\", reddetmek için "
        u"\"2\"\u00A0girin. Sözleşmeyi reddetmeyi seçerseniz kurulum tamamlanmayacak ve Program'ı "
        u"kullanamayacaksınız.\n">,
    .NUMERIC2_KEY = escaped<u"10">,
    .NUMERIC3_KEY = escaped<u"16">,
    .PRINTERRMSG_KEY = escaped<u"Bir yazıcı hatası oluştu. Lisans sözleşmesi yazdırılmayacaktır.">,
    .LANGNAME_KEY = escaped<u"Türkçe">,
    .NONVURTERMS_KEY = escaped<u"VUR dışı tarafların koşullarını oku">,
};

}  // namespace zev::catalogues
