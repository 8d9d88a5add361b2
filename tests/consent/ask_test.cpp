#include <filesystem>
#include <fstream>

#include "consent/support.h"

namespace zev::test {

using Ask = Consent;

TEST_F(Ask, recordsAnAnswerAndAsksAgainOnlyForOtherTerms) {
    sandbox.write("licenses/LA_ja", utf16(u"契約\n"));
    const std::string fingerprint = terms(), digits = fingerprint.substr(0, 32);
    Terminal terminal = onTerminal({}, {{"LANG", "ja_JP"}}, 24, 80, [] { umask(077); });
    terminal.answer("契約", "1");
    const Finished finished = terminal.finish();
    EXPECT_EQ(finished.exitCode, 0);
    EXPECT_THAT(finished.out,
                EndsWith("rocket 2.0: terms " + digits + " accepted (dialogue): " + sandbox.path(record()) + "\n"));

    EXPECT_THAT(
        sandbox.read(record("acceptance")),
        MatchesRegex("product=rocket\nversion=2\\.0\nterms=" + fingerprint + "\naccepted=" + timePattern +
                     "\nwho=[^\n]+\nhost=[^\n]+\nmode=dialogue\nlanguage=ja\nzev=[0-9][^\n]*\n(login=[^\n]+\n)?"));
    EXPECT_EQ(sandbox.read(record("license/Japanese.txt")), "契約\nja information\n");
    EXPECT_EQ(script("cd " + record() + " && sha256sum --quiet --strict -c SHA256SUMS && ls -A ../..").out, "rocket\n");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sandbox.path("state"))) {
        struct stat status {};
        stat(entry.path().c_str(), &status);
        EXPECT_EQ(status.st_mode & 07777, entry.is_directory() ? 0755 : 0644) << entry.path();
    }

    EXPECT_THAT(ask().out, MatchesRegex("rocket 2\\.0: terms " + digits + " accepted " + timePattern + " by [^\n]+\n"));
    EXPECT_FALSE(sandbox.has(record() + ".log"));
    for (const char* version : {"2.1", "2.1", "2.0", "1:2.2~rc1"}) EXPECT_EQ(ask({"-v", version}).exitCode, 0);
    EXPECT_THAT(sandbox.read(record() + ".log"), MatchesRegex(std::string(timePattern) + "\t2\\.1\t[^\t\n]+\n" +
                                                              timePattern + "\t1:2\\.2~rc1\t[^\t\n]+\n"));
    EXPECT_EQ(ask({"-p", "shuttle"}).exitCode, 2) << "a record counts for its own product";

    sandbox.write("licenses/notices", utf16(u"new\n"));
    EXPECT_EQ(ask().exitCode, 2);
    Terminal changed = onTerminal({"-v", "3.0"}, {}, 30);
    changed.waitFor("rocket 3.0: the terms have changed since 2.0 (accepted 20");
    changed.waitFor(").\r\n\r\nen agreement\r\n");
    changed.answer("agreement.", "1");
    EXPECT_EQ(changed.finish().exitCode, 0);
    EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 0) << "both records";
}

TEST_F(Ask, countsTheFingerprintOfTheFilesThatAreThere) {
    std::string names;
    for (const char* kind : {" LA_", " LI_"}) {
        for (const auto& language : languages()) names += kind + std::string(language.code);
    }
    for (const std::string more : {"", " non_vur_license", " non_vur_license notices"}) {
        if (!more.empty()) sandbox.write("licenses/" + more.substr(more.rfind(' ') + 1), utf16(u"more\n"));
        EXPECT_EQ(script("cd licenses && sha256sum" + names + more + " | sha256sum").out.substr(0, 64), terms())
            << more;
    }
    for (const char* code : {"el", "lt", "ru", "sl"}) {
        for (const char* kind : {"LA_", "LI_"}) sandbox.remove(std::string("licenses/") + kind + code);
    }
    EXPECT_EQ(accept().exitCode, 3);
    EXPECT_EQ(accept({"--langset", "3"}).exitCode, 0);
    sandbox.write("licenses/LA_el", utf16(u"more\n"));
    EXPECT_EQ(ask({"--langset", "3"}).exitCode, 2) << "the set of languages does not matter to a fingerprint";
}

TEST_F(Ask, acceptsBeforehandOnlyWhatNamesTheText) {
    const std::string known = terms(), digits = known.substr(0, 32);
    std::string capitals = known;
    std::ranges::transform(capitals, capitals.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    const std::tuple<std::string, int, std::string> rows[]{
        {"", 2, "nobody can be asked for the terms of rocket 2.0: there is no terminal.\n"},
        {"yes", 2, "\"yes\" does not say which text is accepted, and the terms of rocket 2.0 can change.\n"},
        {"1", 2, "\"1\" does not say"},
        {"true", 2, "\"true\" does not say"},
        {"Y", 2, "\"y\" does not say"},
        {"0123456789abcdef0123456789abcdef", 2, "they have changed, read them again.\n"},
        {known.substr(0, 31), 3, "32 to 64 hexadecimal digits"},
        {known + "0", 3, "32 to 64 hexadecimal digits"},
        {"yes, all of them", 3, "32 to 64 hexadecimal digits"},
        {digits, 0, " accepted (fingerprint): "},
        {known, 0, " accepted (fingerprint): "},
        {capitals, 0, " accepted (fingerprint): "},
        {"any", 0, " accepted (any): "},
    };
    for (const auto& [accept, exitCode, says] : rows) {
        sandbox.remove("state");
        const Finished finished = ask({}, {{"ZEV_ACCEPT", accept}, {"ZEV_NOTE", "by hand"}});
        EXPECT_EQ(finished.exitCode, exitCode) << accept;
        EXPECT_THAT(finished.out + finished.err, HasSubstr(says)) << accept;
        if (exitCode == 2) {
            EXPECT_THAT(finished.err, HasSubstr("again with ZEV_ACCEPT=" + digits + " in its environment"));
        }
        EXPECT_EQ(sandbox.has("state"), exitCode == 0) << accept;
        if (exitCode != 0) continue;
        const std::string mode = accept == "any" ? "any" : "fingerprint";
        EXPECT_THAT(sandbox.read(record("acceptance")),
                    AllOf(HasSubstr("\nmode=" + mode + "\nlanguage=-\n"), HasSubstr("\nnote=by hand\n")));
    }
}

TEST_F(Ask, saysWhatToDoWhereNobodyIs) {
    const std::string odd = sandbox.path("a 'b\" $c\n*d\x1B[31m");
    std::filesystem::rename(sandbox.path("licenses"), odd);
    const Arguments more{"-l", odd};
    const std::tuple<const char*, const char*, bool> rows[]{
        {"DEBIAN_FRONTEND", "noninteractive", true}, {"CI", "true", true}, {"CI", "1", true},     {"CI", "", false},
        {"DEBIAN_FRONTEND", "readline", false},      {"CI", "0", false},   {"CI", "false", false}};
    for (const auto& [variable, value, isNobody] : rows) {
        Terminal terminal = onTerminal(more, {{variable, value}});
        if (!isNobody) {
            expectDeclined(terminal);
            continue;
        }
        terminal.waitFor(std::string("rocket 2.0: ") + variable);
        EXPECT_EQ(terminal.finish().exitCode, 2);
        EXPECT_FALSE(sandbox.has("state"));
    }
    const std::string says = ask(more).err, begin = "Read them:    ";
    const auto from = says.find(begin) + begin.size();
    const Finished shown = script(says.substr(from, says.find("\nAccept them:") - from));
    EXPECT_EQ(shown.out, "en agreement\nen information\n") << says;
    EXPECT_THAT(says, Not(HasSubstr("\x1B")));
}

TEST_F(Ask, refusesWhatCannotBeRightBeforeItMakesAnything) {
    sandbox.write("odd/LA_en/directory", "");
    sandbox.write("empty/LA_en", utf16(u"x"));
    const std::string unlike = "0123456789abcdef0123456789abcdef";
    const std::pair<Arguments, std::string> rows[]{
        {{"-l", sandbox.path("none")}, "none cannot be read"},
        {{"-l", sandbox.path("empty")}, "are incomplete; missing: LA_"},
        {{"-l", sandbox.path("odd")}, "/LA_en: "},
        {{"-p", "-x"}, "a product has 1 to 64 of the characters"},
        {{"-l", ""}, "empty"},
        {{"-p", "../x"}, "a product has 1 to 64 of the characters"},
        {{"-p", std::string(65, 'p')}, "a product has 1 to 64 of the characters"},
        {{"-v", "2.0\t"}, "printable"},
        {{"-v", " 2.0"}, "printable"},
        {{"-v", "2\xE2\x80\xAE.0\xE2\x80\xAC"}, "printable"},
        {{"-v", "\xC2\x9B.2"}, "printable"},
        {{"-v", "\xFF"}, "printable"},
        {{"-v", std::string(201, '2')}, "printable"},
        {{"--note", "\x1B[2J"}, "printable"},
        {{"--expect", unlike}, "these are not the terms of this product"},
        {{"--expect", "12"}, "32 to 64 hexadecimal digits"},
        {{"--langset", "2"}, "--langset"},
        {{"--wait", "-1"}, "--wait"},
        {{"stray"}, "stray"},
    };
    for (const auto& [arguments, says] : rows) {
        const Finished finished = ask(joined({"--accept", "any"}, arguments), {{"LC_ALL", "C.UTF-8"}});
        EXPECT_EQ(finished.exitCode, 3) << says;
        EXPECT_THAT(finished.err, AllOf(StartsWith("zev-ask: "), HasSubstr(says)));
        EXPECT_FALSE(sandbox.has("state"));
    }
    for (const auto* hidden : {u"x\0y", u"x\uFFFFy"}) {
        const Sandbox other;
        other.write("licenses/LI_fr", utf16({hidden, 3}));
        EXPECT_THAT(accept({"-l", other.path("licenses")}).err, HasSubstr("/LI_fr: it has a U+0000 or a U+FFFF"));
    }
    EXPECT_THAT(script("mkdir gone && cd gone && rmdir ../gone && \"$@\" --accept any", {"-s", "state"}).err,
                HasSubstr("state cannot be found: the working directory was removed."));
    EXPECT_EQ(ask({"--accept", "any", "-v", "\x1B(B"}, {{"LC_ALL", "ja_JP.ISO-2022-JP"}}).exitCode, 3)
        << "no character";
    EXPECT_EQ(ask({"--accept", "any"}, {{"SUDO_USER", std::string(70'000, 'x')}}).exitCode, 3) << "for later runs";
    EXPECT_EQ(accept({"--expect", terms(), "-v", std::string(200, '2')}).exitCode, 0);
}

TEST_F(Ask, keepsWordsInUtf8WhateverTheLocale) {
    EXPECT_EQ(ask({"--accept", "any", "-v", "\xE9t\xE9"}, {{"LANG", "fr_FR.ISO-8859-1"}, {"ZEV_NOTE", "\xE0 la main"}})
                  .exitCode,
              0);
    EXPECT_THAT(sandbox.read(record("acceptance")),
                AllOf(HasSubstr("\nversion=été\n"), HasSubstr("\nnote=à la main\n")));
    sandbox.write("licenses/non_vur_license", utf16(u"außerdem\n"));
    EXPECT_EQ(
        run({"--show", "-l", sandbox.path("licenses")}, {{"LANG", "de_DE.ISO-8859-1"}}, "", withoutTerminal, askProgram)
            .out,
        "de agreement\nde information\n\naußerdem\n");
}

TEST_F(Ask, namesTheLanguageOfTheTextAndOffersOnlyThoseThatHaveOne) {
    Terminal all = onTerminal({"--choose"}, {{"LANG", "fr_FR"}});
    const auto numberOf = [rows = languages()](std::string_view code) {
        return std::to_string(std::ranges::find(rows, code, &LanguageEntry::code) - rows.begin() + 1);
    };
    const std::string last = numberOf("zh"), question = "1-" + last + " [" + numberOf("fr") + " Français]: ";
    all.waitFor(" 1. ");
    all.answer(last + ". 简体中文\r\n" + question, numberOf("zh_TW"));
    all.answer("Please enter a number from 1 to " + last + ", or a code such as fr.\r\n", "x");
    all.answer("Please enter", std::string(90, '7'));
    all.answer("Please enter", "ru");
    all.answer("ru agreement", "1");
    EXPECT_EQ(all.finish().exitCode, 0);
    EXPECT_THAT(sandbox.read(record("acceptance")), HasSubstr("\nlanguage=ru\n"));
    Terminal latin = onTerminal({"--choose", "-p", "latin"}, {{"LC_ALL", "de_DE.ISO-8859-1"}});
    latin.answer(". Japanese\r\n", "");
    latin.waitFor("de agreement");

    for (const auto& language : languages()) {
        const std::string code = language.code;
        if (code != "de" && code != "fr") sandbox.write("licenses/LA_" + code, utf16(u"en agreement\n"));
    }
    const std::tuple<const char*, const char*, const char*, const char*> rows[]{
        {"cs_CZ", "", "language=en\nzev=", "prompts=cs\n"},
        {"de_DE", "", "language=de\n", "language=de\n"},
        {"cs_CZ", "3", "language=fr\n", "language=fr\n"},
    };
    for (const auto& [locale, choice, language, prompts] : rows) {
        sandbox.remove("state");
        Terminal terminal = onTerminal({"--choose"}, {{"LANG", locale}});
        terminal.waitFor("1. Deutsch\r\n 2. English\r\n 3. Français\r\n1-3 [");
        terminal.answer("]: ", choice);
        terminal.answer(" agreement\r\n", "1");
        EXPECT_EQ(terminal.finish().exitCode, 0);
        EXPECT_THAT(sandbox.read(record("acceptance")), AllOf(HasSubstr(language), HasSubstr(prompts)));
    }
    for (const char* code : {"de", "fr"}) sandbox.write(std::string("licenses/LA_") + code, utf16(u"en agreement\n"));
    Terminal one = onTerminal({"--choose"}, {{"LANG", "fr_FR"}});
    one.waitFor("en agreement");
    EXPECT_THAT(one.screen(), Not(HasSubstr("]: ")));
}

TEST_F(Ask, refusesCodePagesThatLoseTheText) {
    sandbox.write("licenses/LA_zh", utf16(u"许可协议：请仔细阅读简体中文\n"));
    sandbox.write("licenses/LA_ko", utf16(u"사용권 계약을 읽으십시오\n"));
    sandbox.write("licenses/LA_de", utf16(u"Lizenz „für“ Österreich\n"));
    const std::tuple<const char*, const char*, bool> rows[]{
        {"zh_TW.Big5", "zh", false},
        {"zh_CN.GB18030", "zh", true},
        {"ko_KR.Big5", "ko", false},
        {"ko_KR.eucKR", "ko", true},
        {"en_US.UTF-16BE", "en", false},
        {"en_US.ibm-1047", "en", false},
        {"en_US.ISO-8859-1", "en", true},
        {"de_DE.ISO-8859-1", "de", true},
        {"de_DE.ISO-8859-5", "de", false},
        {"C", "zh", true},
        {"zh_CN", "zh", true},
        {"POSIX", "en", true},
    };
    for (const auto& [locale, language, isLegible] : rows) {
        Terminal terminal = onTerminal({"--lang", language}, {{"LC_ALL", locale}});
        SCOPED_TRACE(locale);
        if (isLegible) {
            expectDeclined(terminal, "\r\n\r\n");
            continue;
        }
        terminal.waitFor(" of the locale");
        terminal.waitFor("; set LC_ALL=C.UTF-8");
        EXPECT_EQ(terminal.finish().exitCode, 3);
        EXPECT_FALSE(sandbox.has("state"));
    }
}

TEST_F(Ask, showsTheTextOnScreensWhereZevWouldShowNone) {
    // In German, and in English after "5", the prompt is at least one line higher than the other, and fills the screen.
    sandbox.write("licenses/non_vur_license", utf16(u"other terms\n"));
    for (unsigned short rows = 0; rows < 15; ++rows) {
        Terminal terminal = onTerminal({}, {{"LANG", "de_DE"}}, rows, 40);
        for (const char* text : {"de agreement", "en agreement"}) {
            terminal.answer(text, "4");
            terminal.answer("other terms", "q");
            terminal.answer(text, "5");
        }
        SCOPED_TRACE(rows);
        expectDeclined(terminal, "de agreement");
    }
}

}  // namespace zev::test
