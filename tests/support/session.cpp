#include "support/session.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <poll.h>
#include <pty.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utmp.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

#include "app/run_options.h"

namespace zev::test {

namespace {

constexpr int deadlineSeconds = 50;

/// The command that is tested. ZEV_TEST_COMMAND, with one word on each line, names another one, such as a release, or
/// an emulator and a release for another processor.
Arguments testedCommand() {
    const char* command = std::getenv("ZEV_TEST_COMMAND");
    std::istringstream lines(command != nullptr ? command : ZEV_BINARY);
    Arguments words;
    for (std::string word; std::getline(lines, word);) words.push_back(word);
    return words;
}

/// Undoes what the command would inherit if the tests were started under nohup or with another umask.
void takeDefaults() {
    for (int number = 1; number < NSIG; ++number) std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    umask(022);
}

[[noreturn]] void execute(const std::string& program, const Arguments& arguments, const Environment& environment,
                          Preparation prepare) {
    Arguments words = joined(program.empty() ? testedCommand() : Arguments{program}, arguments);
    const std::string file = words.front();
    words.front().erase(0, file.rfind('/') + 1);
    clearenv();
    setenv("TZ", "UTC", 1);
    setenv("PATH", "/usr/bin:/bin", 1);
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    takeDefaults();
    prepare();
    alarm(deadlineSeconds);
    execv(file.c_str(), argv.data());
    _exit(127);
}

int exitCodeOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

Arguments joined(Arguments arguments, const Arguments& more) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

void boundByPermissions() {
    for (const int capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) prctl(PR_CAPBSET_DROP, capability);
}

std::vector<LanguageEntry> languages() {
    const auto all = languagesOfSet(defaultLanguageSet);
    return {all.begin(), all.end()};
}

std::string utf16(std::u16string_view text) {
    std::string bytes = "\xFE\xFF";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    return bytes;
}

Sandbox::Sandbox() {
    std::string name = (std::filesystem::temp_directory_path() / "zev_test_XXXXXX").string();
    root_ = mkdtemp(name.data());
    for (const auto& language : languages()) {
        const std::string code = language.code;
        const std::u16string wide(code.begin(), code.end());
        write("licenses/LA_" + code, utf16(wide + u" agreement\n"));
        write("licenses/LI_" + code, utf16(wide + u" information\n"));
    }
}

std::string Sandbox::read(std::string_view name) const {
    std::ifstream file(path(name), std::ios::binary);
    if (!file) return "<no file>";
    return {std::istreambuf_iterator<char>(file), {}};
}

void Sandbox::write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories((root_ / name).parent_path());
    std::ofstream(path(name), std::ios::binary) << bytes;
}

void Sandbox::link(std::string_view name, const std::string& target) const {
    write(name, "");
    remove(name);
    std::filesystem::create_symlink(target, path(name));
}

Finished run(const Arguments& arguments, const Environment& environment, const std::string& input, Preparation prepare,
             const std::string& program) {
    const Sandbox streams;
    streams.write("in", input);
    const pid_t process = fork();
    if (process == 0) {
        int descriptor = STDIN_FILENO;
        for (const char* name : {"in", "out", "err"}) {
            dup2(open(streams.path(name).c_str(), O_RDWR | O_CREAT, 0600), descriptor++);
        }
        execute(program, arguments, environment, prepare);
    }
    const int exitCode = exitCodeOf(process);
    return {exitCode, streams.read("out"), streams.read("err")};
}

Terminal::Terminal(unsigned short rows, unsigned short columns, const Arguments& arguments,
                   const Environment& environment, Preparation prepare, const std::string& program) {
    termios settings{};
    cfmakeraw(&settings);
    settings.c_lflag |= ICANON;
    settings.c_iflag |= IXON;
    settings.c_cc[VSTOP] = '\x13';
    settings.c_cc[VEOF] = '\x04';
    settings.c_cc[VINTR] = '\x03';
    const winsize size{rows, columns, 0, 0};
    int end = -1;
    EXPECT_EQ(openpty(&terminal_, &end, nullptr, &settings, &size), 0);
    EXPECT_EQ(tcgetattr(terminal_, &before_), 0);
    process_ = fork();
    if (process_ == 0) {
        close(terminal_);
        login_tty(end);
        execute(program, arguments, environment, prepare);
    }
    close(end);
}

Terminal::~Terminal() {
    close(terminal_);
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    exitCodeOf(process_);
}

bool Terminal::readSome() {
    pollfd ready{terminal_, POLLIN, 0};
    if (poll(&ready, 1, deadlineSeconds * 1000) <= 0) return false;
    char bytes[4096];
    const ssize_t size = read(terminal_, bytes, sizeof bytes);
    if (size > 0) unread_.append(bytes, static_cast<std::size_t>(size));
    return size > 0;
}

void Terminal::waitFor(const std::string& text) {
    std::size_t found;
    while ((found = unread_.find(text)) == std::string::npos) {
        ASSERT_TRUE(readSome()) << "waited for \"" << text << "\", have \"" << unread_ << "\"";
    }
    unread_.erase(0, found + text.size());
}

void Terminal::waitUntilItSleeps() const {
    const pid_t foreground = tcgetpgrp(terminal_);
    const std::string path = "/proc/" + std::to_string(foreground > 0 ? foreground : process_) + "/stat";
    for (int attempt = 0; attempt < 1000; ++attempt, usleep(1000)) {
        std::string number, name, state;
        if (!(std::ifstream(path) >> number >> name >> state) || (state != "R" && state != "D")) return;
    }
}

void Terminal::type(const std::string& line) {
    waitUntilItSleeps();
    const std::string bytes = line + "\n";
    EXPECT_EQ(write(terminal_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

void Terminal::raise(int signal) const { EXPECT_EQ(kill(process_, signal), 0); }

void Terminal::hangUp() { close(std::exchange(terminal_, -1)); }

termios Terminal::settings() const {
    termios settings{};
    EXPECT_EQ(tcgetattr(terminal_, &settings), 0);
    return settings;
}

Finished Terminal::finish() {
    while (terminal_ != -1 && readSome()) {
    }
    return {finishUnread(), unread_, ""};
}

int Terminal::finishUnread() { return exitCodeOf(std::exchange(process_, -1)); }

}  // namespace zev::test
