#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <filesystem>
#include <list>

#include "consent/support.h"

namespace zev::test {

namespace fs = std::filesystem;

using AskRecord = Consent;

#define SKIP_UNLESS_ROOT(why) \
    if (geteuid() != 0) GTEST_SKIP() << "only root can " << (why)

TEST_F(AskRecord, isJudgedBeforeAnythingIsShownAndAsTheAuditDoes) {
    const std::string own = sandbox.path(record()), acceptance = own + "/acceptance";
    ASSERT_EQ(accept().exitCode, 0);
    const std::string whole = sandbox.read(record("acceptance"));
    const std::tuple<std::string, std::string, std::string> rows[]{
        // What is done in the place of the record, what zev-ask says of it, and the state in the audit.
        {"rm -r license", "license is not a directory", "INCOMPLETE"},
        {"rm SHA256SUMS", "SHA256SUMS is missing", "INCOMPLETE"},
        {"rm acceptance", "acceptance is missing", "INCOMPLETE"},
        {"rm acceptance && mkfifo acceptance", "not a regular file", "INCOMPLETE"},
        {"rm acceptance && ln -s /etc/passwd acceptance", "cannot be read", "INCOMPLETE"},
        {"truncate -s 1G acceptance", "too large", "INCOMPLETE"},
        {"truncate -s 257M license/English.txt", "too large", "INCOMPLETE"},
        {"rm license/English.txt && mkdir license/English.txt", "not a regular file", "INCOMPLETE"},
        {"chmod o+w license/English.txt", "others can write to it", "INCOMPLETE"},
        {"chmod o+w .", "others can write to it", "INCOMPLETE"},
        {"echo mode=x >>acceptance", "has one twice", "INCOMPLETE"},
        {"sed -i /^accepted=/d acceptance", "lacks a field", "INCOMPLETE"},
        {"sed -i /^terms=/d acceptance", "lacks a field", "INCOMPLETE"},
        {"sed -i /^product=/d acceptance", "lacks a field", "INCOMPLETE"},
        {"sed -i s/=rocket/=shuttle/ acceptance", "another product", "INCOMPLETE"},
        {"sed -i /^who=/s/$/x/ acceptance", "not those that were recorded", "COPIES CHANGED"},
        {"echo x >license/English.txt", "not those that were recorded", "COPIES CHANGED"},
        {"echo x >license/more.txt", "not those that were recorded", "COPIES CHANGED"},
        {"rm license/English.txt", "not those that were recorded", "COPIES CHANGED"},
        {"echo x >more", "not those that were recorded", "COPIES CHANGED"},
        {"cd .. && mv ${OLDPWD##*/} ../x && ln -s ../x ${OLDPWD##*/}", "not a directory", "INCOMPLETE"},
        {"cd .. && rm -r $OLDPWD && touch $OLDPWD", "not a directory", "INCOMPLETE"},
    };
    for (const auto& [fault, says, state] : rows) {
        sandbox.remove("state");
        ASSERT_EQ(accept().exitCode, 0);
        ASSERT_EQ(script("cd '" + own + "' && " + fault).exitCode, 0) << fault;
        const Finished finished = accept();
        EXPECT_EQ(finished.exitCode, 3) << fault;
        EXPECT_THAT(finished.err, AllOf(HasSubstr(own + " is not a whole record ("), HasSubstr(says),
                                        EndsWith("look into it with zev-audit, and move it away.\n")))
            << fault;
        const Finished audited = audit({sandbox.path("state")});
        EXPECT_EQ(audited.exitCode, 1) << fault;
        EXPECT_THAT(audited.out, HasSubstr("  " + state + "  " + own)) << fault;
    }
    sandbox.remove(record());
    fs::create_directory(own);
    EXPECT_EQ(accept().exitCode, 0) << "a directory replaces an empty one";
    sandbox.write(record() + ".sig", "signature");
    EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 0);
    sandbox.remove("state/rocket");
    sandbox.link("state/rocket", sandbox.path("elsewhere"));
    EXPECT_EQ(accept().exitCode, 3);
    EXPECT_FALSE(sandbox.has("elsewhere"));
}

TEST_F(AskRecord, countsIfItsFilesAreThoseOfRootOrOfTheOwnerOfTheState) {
    SKIP_UNLESS_ROOT("give files to others");
    for (const char* file : {"", "license", "license/English.txt", "acceptance", "SHA256SUMS"}) {
        sandbox.remove("state");
        ASSERT_EQ(accept().exitCode, 0);
        ASSERT_EQ(chown(sandbox.path(record(file)).c_str(), stranger, stranger), 0);
        EXPECT_THAT(accept().err, HasSubstr("belongs to a user whose records do not count")) << file;
        EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 1) << file;
        ASSERT_EQ(chown(sandbox.path("state").c_str(), stranger, stranger), 0);
        EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 0) << "that of a user, whoever looks at it";
        ASSERT_EQ(script("chown -R 0:12345 state && chmod g+w " + record(file)).exitCode, 0);
        EXPECT_THAT(accept().err, HasSubstr("or others can write to it")) << file;
        ASSERT_EQ(script("chmod 1777 state && chown -R 12345 state/* && chmod g-w " + record(file)).exitCode, 0);
        EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 1) << "a master directory is not everyone's";
    }
}

TEST_F(AskRecord, leavesAloneWhateverOthersPutWhereItWorks) {
    sandbox.write("outside/file", "kept");
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(48);
    const auto plant = [&](const std::string& name, bool hasLock) {
        sandbox.write("state/" + name + "/" + (hasLock ? "lock" : "terms/LA_en"), "");
        fs::permissions(sandbox.path("state/" + name), fs::perms::owner_all);
        if (name.ends_with("young")) return;
        fs::last_write_time(sandbox.path("state/" + name), longAgo);
    };
    plant(".zev-ask-free", true);
    plant(".zev-ask-held", true);
    plant(".zev-ask-young", true);
    const std::string closed = sandbox.path("state/.zev-ask-closed/record");
    sandbox.write("state/.zev-ask-closed/record/file", "");
    plant(".zev-ask-closed", true);
    fs::permissions(closed, fs::perms::owner_read);  // what is in it can be listed and not removed

    sandbox.write("state/.zev-ask-records/rocket/acceptance", "kept");  // a name like that of a scratch directory
    fs::last_write_time(sandbox.path("state/.zev-ask-records"), longAgo);
    sandbox.write("state/.zev-ask-file", "");
    sandbox.link("state/.zev-ask-link", sandbox.path("outside"));
    sandbox.link("outside/gone", "/etc/profile.d");
    const int lock = open(sandbox.path("state/.zev-ask-held/lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        plant(".zev-ask-foreign", true);
        ASSERT_EQ(chown(sandbox.path("state/.zev-ask-foreign").c_str(), stranger, stranger), 0);
        fs::last_write_time(sandbox.path("state/.zev-ask-foreign"), longAgo);
    }
    EXPECT_EQ(accept({}, [] { withoutTerminal(), boundByPermissions(); }).exitCode, 0);
    fs::permissions(closed, fs::perms::owner_all);
    close(lock);
    EXPECT_FALSE(sandbox.has("state/.zev-ask-free"));
    for (const char* kept :
         {"held/lock", "young/lock", "records/rocket/acceptance", "file", "link/file", "link/gone"}) {
        EXPECT_TRUE(fs::exists(fs::symlink_status(sandbox.path("state/.zev-ask-" + std::string(kept))))) << kept;
    }
    EXPECT_EQ(sandbox.has("state/.zev-ask-foreign"), isRoot);
}

TEST_F(AskRecord, goesOnlyWhereNobodyElseCanLeadIt) {
    SKIP_UNLESS_ROOT("make directories of others");
    const auto everyone = fs::perms::group_exec | fs::perms::others_exec;
    fs::permissions(sandbox.path(), everyone, fs::perm_options::add);
    fs::permissions(sandbox.path("licenses"), everyone, fs::perm_options::add);
    const std::tuple<const char*, mode_t, uid_t, gid_t, Preparation, const char*> rows[]{
        {"", 0755, 0, 0, withoutTerminal, ""},
        {"", 0777, 0, 0, withoutTerminal,
         "above is not safe for records: everyone can write to it; take that right away with chmod o-w"},
        {"", 01777, 0, 0, withoutTerminal, ""},
        {"", 0775, 0, 0, withoutTerminal, ""},
        {"", 0775, 0, stranger, withoutTerminal, "group 12345 can write to it; take that right away with chmod g-w"},
        {"", 0755, stranger, 0, withoutTerminal, "above is not safe for records: it belongs to user 12345"},
        {"", 0775, stranger, stranger, asStranger, ""},
        {"", 0777, stranger, stranger, asStranger, "everyone can write to it"},
        {"", 01777, 1, 1, asStranger, "it belongs to user 1,"},
        {"", 01777, 0, 0, asStranger, ""},
        {"/state", 01777, 0, 0, asStranger, "your records would not count there"},
        {"/state", 0777, 0, 0, withoutTerminal, "state is not safe"},
        {"/state", 0775, 0, stranger, withoutTerminal, "state is not safe"},
        {"/state/rocket", 0775, 0, stranger, withoutTerminal,
         "rocket belongs to a user whose records do not count, or"},
    };
    for (const auto& [name, mode, user, group, prepare, says] : rows) {
        sandbox.remove("above");
        fs::create_directories(sandbox.path("above" + std::string(name)));
        const std::string path = sandbox.path("above" + std::string(name));
        ASSERT_EQ(chown(path.c_str(), user, group) + chmod(path.c_str(), mode), 0);
        const Finished finished = accept({"-s", sandbox.path("above/state")}, prepare);
        EXPECT_EQ(finished.exitCode, *says == '\0' ? 0 : 3) << says << mode << finished.err;
        EXPECT_THAT(finished.err, HasSubstr(says));
        EXPECT_EQ(sandbox.has("above/state/rocket/" + terms()), *says == '\0') << says << mode;
    }
    EXPECT_THAT(audit({sandbox.path("above/state")}).out, HasSubstr("INCOMPLETE"));
    sandbox.remove("above");
    sandbox.write("above/real/file", "");
    ASSERT_EQ(chmod(sandbox.path("above").c_str(), 01777), 0);
    sandbox.link("above/link", "real/.");
    EXPECT_EQ(accept({"-s", sandbox.path("above/link/../real/state")}).exitCode, 0);
    ASSERT_EQ(lchown(sandbox.path("above/link").c_str(), stranger, stranger), 0);
    EXPECT_THAT(accept({"-s", sandbox.path("above/link/other")}).err,
                HasSubstr("it is a link, and it belongs to user 12345, who can change it"));
}

TEST_F(AskRecord, liesInThePlaceOfTheUserWhoeverThatIs) {
    SKIP_UNLESS_ROOT("become another user");
    for (const auto& [name, mode] : {std::pair("", 0711), {"licenses", 0755}, {"home", 0711}, {"state", 0755}}) {
        fs::create_directory(sandbox.path(name));
        ASSERT_EQ(chmod(sandbox.path(name).c_str(), static_cast<mode_t>(mode)), 0);
    }
    ASSERT_EQ(chown(sandbox.path("home").c_str(), stranger, stranger), 0);
    const Arguments arguments{"-p", "rocket", "-v", "1", "-l", sandbox.path("licenses"), "--accept", "any"};
    const std::string home = sandbox.path("home"), fallback = home + "/.local/state/zev";
    const std::pair<Environment, std::string> rows[]{
        {{{"HOME", home}}, fallback},
        {{{"HOME", home}, {"XDG_STATE_HOME", "states"}}, fallback},
        {{{"HOME", home}, {"XDG_STATE_HOME", sandbox.path("state")}}, fallback},  // of another user
        {{{"XDG_STATE_HOME", home + "/own"}}, home + "/own/zev"},
        {Environment(), ""},
    };
    for (const auto& [environment, place] : rows) {
        const Finished finished = run(arguments, environment, "", asStranger, askProgram);
        EXPECT_EQ(finished.exitCode, place.empty() ? 3 : 0) << finished.err;
        EXPECT_EQ(finished.err.find("name a state directory with -s") != std::string::npos, place.empty());
        EXPECT_EQ(fs::exists(place + "/rocket"), !place.empty());
        EXPECT_EQ(run({}, environment, "", asStranger, auditProgram).exitCode, place.empty() ? 2 : 0);
        fs::remove_all(place);
    }
    EXPECT_EQ(run(arguments, {{"HOME", home}, {"SUDO_USER", "alice"}}, "", asStranger, askProgram).exitCode, 0);
    EXPECT_THAT(sandbox.read("home/.local/state/zev/rocket/" + terms() + "/acceptance"),
                HasSubstr("\nwho=12345 (sudo by alice)\n"));
}

TEST_F(AskRecord, canBeMadeInAUserNamespace) {
    if (run({"-r", "true"}, {}, "", unprepared, "/usr/bin/unshare").exitCode != 0)
        GTEST_SKIP() << "there are no user namespaces";
    ASSERT_EQ(script("unshare -r \"$@\" --accept any").exitCode, 0);
    EXPECT_EQ(audit({sandbox.path("state")}).exitCode, 0);
}

TEST_F(AskRecord, ofAGroupIsCopiedWithWhatItSays) {
    const Arguments grouped{"-m", sandbox.path("master")};
    const Finished failed = accept({"-m", "/proc/master"});
    EXPECT_EQ(failed.exitCode, 0);
    EXPECT_THAT(failed.err, HasSubstr("recorded in " + sandbox.path("state") + ", but not in the master directory"));
    fs::create_directories(sandbox.path("master/rocket"));  // as a killed run leaves it
    ASSERT_EQ(chmod(sandbox.path("master").c_str(), 02775), 0);
    EXPECT_EQ(ask(grouped).exitCode, 0) << "a later run makes it good";
    struct stat status {};
    EXPECT_EQ(stat(sandbox.path("master/rocket").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 02775);
    EXPECT_EQ(script("ls -A master && diff -r state/rocket master/rocket").out, "rocket\n");

    const auto editAll = [&](const std::string& edit) {
        return script("cd " + record("", "master") + " && " + edit + " && sha256sum acceptance license/* >SHA256SUMS")
            .exitCode;
    };
    ASSERT_EQ(editAll("sed -i "
                      "'s/^accepted=20../accepted=2019/;s/^who=.*/who=carol/;s/^host=.*/host=far/;s/^version=.*/"
                      "version=1.0/;s/^zev/prompts=cs\\nzev/' acceptance"),
              0);
    const Arguments other = joined(grouped, {"-s", sandbox.path("other")});
    EXPECT_THAT(ask(other).out, ContainsRegex("accepted \\(master\\): "));
    EXPECT_THAT(sandbox.read(record("acceptance", "other")),
                MatchesRegex("product=rocket\nversion=1.0\nterms=" + terms() +
                             "\naccepted=2019[^\n]+\nwho=carol\nhost=far\nmode=any\nlanguage=-\nzev=[^\n]+\nprompts="
                             "cs\n(login=[^\n]+\n)?master=" +
                             sandbox.path("master") + "\ncopied=" + timePattern + " by [^\n]+\n"));
    EXPECT_THAT(sandbox.read(record("", "other") + ".log"), HasSubstr("\t2.0\t")) << "which version came with it here";
    EXPECT_EQ(audit({sandbox.path("master"), sandbox.path("other")}).exitCode, 0);

    const std::string third = sandbox.path("third");
    ASSERT_EQ(editAll("chmod o+w acceptance"), 0);
    EXPECT_EQ(ask(joined(grouped, {"-s", third})).exitCode, 3);
    ASSERT_EQ(editAll("chmod o-w acceptance"), 0);
    ASSERT_EQ(chmod(sandbox.path("master").c_str(), 01777), 0);
    EXPECT_THAT(ask(joined(grouped, {"-s", third})).err, HasSubstr("everyone can write to it"));
    ASSERT_EQ(chmod(sandbox.path("master").c_str(), 02775), 0);
    SKIP_UNLESS_ROOT("give files to others");
    ASSERT_EQ(script("chown 12345:12345 master && chown -R 12346 " + record("", "master")).exitCode, 0);
    EXPECT_EQ(ask(joined(grouped, {"-s", third})).exitCode, 0) << "of any one owner";
    ASSERT_EQ(script("rm -r third; chown 12347 " + record("acceptance", "master")).exitCode, 0);
    EXPECT_THAT(ask(joined(grouped, {"-s", third})).err, HasSubstr("belongs to a user whose records do not count"));
}

TEST_F(AskRecord, isWholeOrNotThereOnAFullDisk) {
    if (run({"-rm", "true"}, {}, "", unprepared, "/usr/bin/unshare").exitCode != 0) GTEST_SKIP() << "may not mount";
    int whole = 0;
    for (int pages = 16; pages < 112; pages += 8) {
        const Finished finished =
            script("export AUDIT; exec unshare -rm sh -c 'SIZE=" + std::to_string(pages * 4) + R"sh(k
            mkdir -p disk && mount -t tmpfs -o mode=755,size="$SIZE" tmpfs disk || exit 99
            "$@" --accept any; code=$?
            "$AUDIT" disk/state; ls -A disk; exit $code' script "$@")sh",
                   {"-s", sandbox.path("disk/state")});
        if (finished.exitCode == 99) GTEST_SKIP() << "may not mount";
        const bool isAccepted = finished.exitCode == 0;
        EXPECT_TRUE(isAccepted || finished.exitCode == 3) << finished.err;
        EXPECT_THAT(finished.out, EndsWith(isAccepted ? "  ok\nstate\n" : "  NOT ACCEPTED  disk/state\n")) << pages;
        whole += isAccepted ? 1 : 0;
    }
    EXPECT_GT(whole, 0);
    EXPECT_LT(whole, 12);
}

TEST_F(AskRecord, isWholeOrNotThereAfterASignal) {
    const Finished limited = accept({}, [] {
        withoutTerminal();
        const rlimit few{100, 100};
        setrlimit(RLIMIT_FSIZE, &few);
    });
    EXPECT_EQ(limited.exitCode, -SIGXFSZ);
    EXPECT_FALSE(sandbox.has("state"));
    const Finished killed = script(R"sh(
        for pause in 0 .003 .006 .01 .015 .02 .025 .03 .04 .05 .06 .08; do
            "$@" --accept any -m "$PWD/master" & sleep $pause; kill -s KILL $!; wait $!
            for place in state master; do [ ! -e $place/rocket/* ] || "$AUDIT" $place || echo "half a record"; done
            "$@" --accept any -m "$PWD/master" && "$AUDIT" state master || echo "no record"
            rm -rf state master
        done 2>&1)sh");
    EXPECT_THAT(killed.out, Not(ContainsRegex("half|no record")));
}

TEST_F(AskRecord, isOneOfManyRunsAtOnce) {
    std::list<Terminal> people;
    for (int i = 0; i < 6; ++i) people.emplace_back(24, 80, asking(), Environment{}, unprepared, askProgram);
    for (Terminal& person : people) person.waitFor("completed viewing");
    people.front().type("2\n2");
    EXPECT_EQ(people.front().finish().exitCode, 1);
    people.pop_front();
    const Finished crowd = script(R"sh(
        for i in 1 2 3 4 5 6 7 8 9 10 11 12; do "$@" --accept any & runs="$runs $!"; done
        for run in $runs; do wait $run || echo "failed with $?"; done)sh",
                                  {"-v", "1.0"});
    EXPECT_THAT(crowd.out, Not(HasSubstr("failed"))) << crowd.err;
    for (Terminal& person : people) {
        person.type("1");
        EXPECT_EQ(person.finish().exitCode, 0);
    }
    EXPECT_EQ(script("ls -A state state/rocket").out,
              "state:\nrocket\n\nstate/rocket:\n" + terms() + "\n" + terms() + ".log\n");
    EXPECT_THAT(audit({sandbox.path("state")}).out, AllOf(HasSubstr("rocket   1.0"), HasSubstr("rocket   2.0")));
}

}  // namespace zev::test
