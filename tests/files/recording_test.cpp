#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unicode/locid.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

#include "support/session.h"

namespace zev::test {

using testing::HasSubstr;

/// Unattended runs, which record an acceptance and do nothing else.
class Recording : public testing::Test {
protected:
    int record(const char* locale = "en_US.UTF-8", const Arguments& more = {}) {
        const Finished finished =
            run(joined(sandbox.arguments({"-debug", "-t", "5"}), more), {{"LC_ALL", locale}, {"TZ", "ABC-5"}});
        trace = finished.err;
        return finished.exitCode;
    }
    [[nodiscard]] std::string copy(const std::string& name) const { return sandbox.read("status/license/" + name); }

    const Sandbox sandbox;
    std::string trace;
};

TEST_F(Recording, leavesACopyOfEveryLanguageUnderItsEnglishNameAndOfWhatServesAll) {
    sandbox.write("licenses/non_vur_license", utf16(u"terms"));
    sandbox.write("licenses/notices", utf16(u"notices"));
    sandbox.write("status/license/German.txt", std::string(9999, 'x'));
    EXPECT_EQ(record(), 9);
    for (const auto& entry : languages()) {
        const std::string code = entry.code;
        icu::UnicodeString language;
        std::string name;
        icu::Locale(code.c_str()).getDisplayLanguage(icu::Locale::getEnglish(), language).toUTF8String(name);
        EXPECT_EQ(copy(name + code.substr(2) + ".txt"), code + " agreement\n" + code + " information\n");
    }
    EXPECT_EQ(copy("non_vur_license.txt") + copy("notices.txt"), "termsnotices");
    const auto modeOf = [&](const char* name) { return std::filesystem::status(sandbox.path(name)).permissions(); };
    for (const char* name : {"status/license/Greek.txt", "status/license/notices.txt", "status/license/status.dat"}) {
        EXPECT_EQ(modeOf(name), modeOf("licenses/notices")) << "for whom the umask lets read " << name;
    }
    const auto files = std::filesystem::directory_iterator(sandbox.path("status/license"));
    EXPECT_EQ(std::distance(begin(files), end(files)), std::ssize(languages()) + 3);
}

TEST_F(Recording, copiesInTheCodePageOfTheProcess) {
    sandbox.write("licenses/LA_ja", utf16(u"許諾é"));
    sandbox.write("licenses/LI_ja", utf16(u"x"));
    sandbox.write("licenses/notices", utf16(u"é"));
    const std::pair<const char*, std::string> rows[]{
        {"ja_JP.UTF-8", "許諾éx"},
        {"ja_JP.ISO-2022-JP", "\x1B$B5vBz\x1B(B\x1Ax"},
        {"ko_KR.ISO-2022-KR", "\x1B$)C\x0EzIQg\x0F\x1Ax"},
        {"fr_FR.ISO-8859-1", "\x1A\x1A\xE9x"},
        {"fr_FR", "\x1A\x1A\x1Ax"},
    };
    for (const auto& [locale, bytes] : rows) {
        EXPECT_EQ(record(locale), 9);
        EXPECT_EQ(copy("Japanese.txt"), bytes) << locale;
    }
    EXPECT_EQ(copy("notices.txt"), "\x1A");
}

TEST_F(Recording, stopsAtTheFirstFailureAndLeavesWhatIsThere) {
    sandbox.remove("licenses/LI_it");
    sandbox.remove("licenses/LA_ko");
    sandbox.write("status/license/status.dat", "old");
    EXPECT_EQ(record("C", {"-langset", "3"}), 15);
    EXPECT_FALSE(sandbox.has("status/license/Greek.txt")) << "not in the smaller set";
    EXPECT_EQ(copy("Italian.txt"), "it agreement\n");
    EXPECT_EQ(copy("Korean.txt"), "");
    EXPECT_FALSE(sandbox.has("status/license/Polish.txt"));
    EXPECT_EQ(copy("status.dat"), "old");
    EXPECT_THAT(trace, HasSubstr("DEBUG: Unable to open LA file " + sandbox.path("licenses/LA_ko") +
                                 "\nDEBUG: Problem writing status files, errno = 2\n"));
}

TEST_F(Recording, noticesWhatCannotBeWritten) {
    const std::string problem = "DEBUG: Problem writing status files, errno = 28\n";
    sandbox.link("status/license/German.txt", "/dev/full");
    EXPECT_EQ(record(), 15);
    EXPECT_THAT(trace, HasSubstr("DEBUG: Problems writing to " + sandbox.path("status/license/German.txt") + " with " +
                                 sandbox.path("licenses/LA_de") + "\n" + problem));

    sandbox.remove("status/license/German.txt");
    sandbox.write("licenses/notices", utf16(u"n"));
    sandbox.link("status/license/notices.txt", "/dev/full");
    EXPECT_EQ(record(), 9) << "the copies for all languages are blind";
    sandbox.remove("status/license/notices.txt");
    sandbox.write("licenses/non_vur_license", utf16(u"t"));
    sandbox.write("status/license/non_vur_license.txt/x", "in the way");
    EXPECT_EQ(record(), 15);
    EXPECT_FALSE(sandbox.has("status/license/notices.txt")) << "they come after the terms";
    sandbox.remove("licenses/non_vur_license");

    sandbox.link("status/license/status.dat", "/dev/full");
    EXPECT_EQ(record(), 15);
    EXPECT_THAT(trace, HasSubstr(problem));
}

TEST_F(Recording, doesNotDependOnTheMasterStatusFile) {
    const std::string written = "DEBUG: Master status.dat written successfully to ";
    const std::string failed = "DEBUG: Unable to write the master status.dat to ";
    sandbox.link("full/status.dat", "/dev/full");
    const std::pair<std::string, std::string> rows[]{{sandbox.path("m//n"), written},
                                                     {sandbox.path("full"), failed},
                                                     {sandbox.path("licenses/LA_en/m"), failed},
                                                     {"", failed}};
    for (const auto& [path, line] : rows) {
        EXPECT_EQ(record("C", {"-m", path}), 9);
        EXPECT_THAT(trace, HasSubstr(line + path + "/status.dat\n"));
    }
    EXPECT_THAT(sandbox.read("m/n/status.dat"), testing::EndsWith("\nStatus=9\n"));
}

TEST_F(Recording, writesTwoLinesWithTheLocalTime) {
    EXPECT_EQ(record(), 9);
    const std::string bytes = copy("status.dat");
    EXPECT_EQ(bytes.size(), 39U);
    tm date{};
    EXPECT_STREQ(strptime(bytes.c_str(), "#%a %b %d %H:%M:%S ABC %Y\n", &date), "Status=9\n") << bytes;
    run(sandbox.arguments({"-t", "5"}), {{"TZ", std::string(40, 'A') + "-5"}});
    EXPECT_EQ(copy("status.dat"), "#\nStatus=9\n") << "a zone whose name leaves no room";
}

TEST(RecordingWithoutPrivileges, keepsWhatItMayNotWriteAndTakesForAbsentWhatItMayNotRead) {
    const std::string notRecorded = "DEBUG: Problem writing status files, errno = 13\n", recorded = "DEBUG: All status";
    const std::tuple<std::string, std::string, unsigned, int, std::string> rows[]{
        // A file that is there, and whose permissions are taken away.
        {"x", "", 0500, 20, "DEBUG: Function mkdir returned -1\nDEBUG: errno = 13\n"},
        {"status/x", "status", 0500, 21, ""},
        {"status/license/German.txt", "status/license/German.txt", 0400, 15, notRecorded},
        {"status/license/status.dat", "status/license/status.dat", 0400, 15, notRecorded},
        {"m/status.dat", "m/status.dat", 0400, 9, "DEBUG: Unable to write the master status.dat to "},
        {"licenses/LA_de", "licenses/LA_de", 0, 15, notRecorded},
        {"licenses/LI_de", "licenses/LI_de", 0, 9, recorded},
        {"licenses/notices", "licenses/notices", 0, 9, recorded},
    };
    for (const auto& [file, closed, mode, exitCode, line] : rows) {
        SCOPED_TRACE(file);
        const Sandbox sandbox;
        sandbox.write(file, "Status=9\n");
        const auto allow = [path = sandbox.path(closed)](mode_t bits) { ASSERT_EQ(chmod(path.c_str(), bits), 0); };
        allow(mode);
        const Finished finished =
            run(sandbox.arguments({"-debug", "-t", "5", "-m", sandbox.path("m")}), {}, "", boundByPermissions);
        allow(0700);
        EXPECT_EQ(finished.exitCode, exitCode);
        EXPECT_THAT(finished.err, HasSubstr(line));
        EXPECT_EQ(sandbox.read(file), "Status=9\n");
    }
}

TEST_F(Recording, isJudgedByItsFirstLineThatSaysSomething) {
    using namespace std::string_literals;
    const std::pair<std::string, bool> rows[]{
        {"Status=9", true},
        {"#\n\n# Sat\nStatus=9\nStatus=3\n", true},
        {"Status=9\0rest\n"s, true},  // a line is a C string
        {"#" + std::string(78, '-') + "\nStatus=9\n", true},
        {"#" + std::string(79, '-') + "\nStatus=9\n", false},
        {"Status=9\r\n", false},
        {" Status=9\n", false},
        {"Status=9 \n", false},
        {"status=9\n", false},
        {"Status=09\n", false},
        {"Status=3\nStatus=9\n", false},
        {"# only\n# comments", false},
        {"", false},
    };
    const std::string path = sandbox.path("status/license/status.dat");
    for (const auto& [bytes, valid] : rows) {
        sandbox.write("status/license/status.dat", bytes);
        const Finished finished = run(sandbox.arguments({"-debug"}), {}, "2\n2\n");
        EXPECT_EQ(finished.exitCode, valid ? 9 : 3) << bytes;
        EXPECT_THAT(finished.err,
                    HasSubstr((valid ? "DEBUG: Valid" : "DEBUG: Invalid") + (" status.dat found at " + path)));
    }
}

TEST_F(Recording, findsNoEndWhereATextCannotBeRead) {
    const std::pair<const char*, std::string> rows[]{
        {"LA_de", "Error reading LA file"},
        {"LI_de", "Error reading LI file"},
        {"non_vur_license", "Error reading " + sandbox.path("licenses/non_vur_license")},
        {"notices", "Error reading " + sandbox.path("licenses/notices")},
    };
    for (const auto& [name, line] : rows) {
        const std::string file = std::string("licenses/") + name;
        sandbox.link(file, "/proc/self/mem");  // opens, and its first byte is a bad address
        EXPECT_EQ(record(), 15) << name;
        EXPECT_THAT(trace, HasSubstr("DEBUG: " + line + "\nDEBUG: Problem writing status files"));
        sandbox.remove(file);
        sandbox.write(file + "/x", "a directory");
        EXPECT_EQ(record(), 15) << name;
        EXPECT_EQ(run(sandbox.arguments(), {{"LC_ALL", "de_DE.UTF-8"}}, "1\n").exitCode, name[0] == 'L' ? 11 : 15);
        sandbox.remove(file);
        sandbox.write(file, utf16(u"text"));
    }
}

TEST_F(Recording, takesWhatCanNeverBeOpenedForAbsent) {
    const std::pair<const char*, int> rows[]{{"LI_ko", 11}, {"notices", 9}, {"non_vur_license", 9}};
    for (const auto& [name, exitCode] : rows) {
        const std::string file = std::string("licenses/") + name;
        sandbox.remove(file);
        sockaddr_un address{AF_UNIX, {}};
        sandbox.path(file).copy(address.sun_path, sizeof address.sun_path - 1);
        const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
        ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(run(sandbox.arguments(), {}, "1\n").exitCode, exitCode) << name;
        EXPECT_FALSE(sandbox.has("status/license/" + (name + std::string(".txt"))));
        close(descriptor);
        sandbox.remove("status");
        sandbox.remove(file);
        sandbox.write(file, utf16(u"text"));
    }
}

TEST_F(Recording, isCompleteAtEveryMomentOverAnEarlierOne) {
    const Arguments more{"-t", "5", "-m", sandbox.path("m")};
    EXPECT_EQ(run(sandbox.arguments(more)).exitCode, 9);
    const std::string master = sandbox.read("m/status.dat"), local = copy("status.dat");
    const auto killAtTheFirstByte = [] {
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
    };
    EXPECT_EQ(run(sandbox.arguments(more), {}, "", killAtTheFirstByte).exitCode, -SIGXFSZ);
    EXPECT_EQ(run(sandbox.arguments({"-t", "5"}), {}, "", killAtTheFirstByte).exitCode, -SIGXFSZ);
    EXPECT_EQ(sandbox.read("m/status.dat"), master);
    EXPECT_EQ(copy("status.dat"), local);
    EXPECT_EQ(copy("Czech.txt"), "cs agreement\ncs information\n");
}

}  // namespace zev::test
