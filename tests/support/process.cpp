#include "support/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace zev::test {

namespace {

constexpr int deadlineSeconds = 20;

[[noreturn]] void execute(Arguments arguments, const Environment& environment) {
    clearenv();
    setenv("TZ", "UTC", 1);
    setenv("PATH", "/usr/bin:/bin", 1);
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    std::string program = "zev";
    std::vector<char*> argv{program.data()};
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    alarm(deadlineSeconds);
    execv(ZEV_BINARY, argv.data());
    _exit(127);
}

int exitCodeOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

Finished run(const Arguments& arguments, const Environment& environment, const std::string& input) {
    const Sandbox streams;
    streams.write("in", input);
    const pid_t process = fork();
    if (process == 0) {
        int descriptor = STDIN_FILENO;
        for (const char* name : {"in", "out", "err"}) {
            dup2(open(streams.path(name).c_str(), O_RDWR | O_CREAT, 0600), descriptor++);
        }
        execute(arguments, environment);
    }
    const int exitCode = exitCodeOf(process);
    return {exitCode, streams.read("out"), streams.read("err")};
}

Terminal::Terminal(unsigned short rows, unsigned short columns, const Arguments& arguments,
                   const Environment& environment) {
    termios settings{};
    cfmakeraw(&settings);
    settings.c_lflag |= ICANON;
    settings.c_cc[VEOF] = '\x04';
    const winsize size{rows, columns, 0, 0};
    process_ = forkpty(&terminal_, nullptr, &settings, &size);
    if (process_ == 0) execute(arguments, environment);
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

void Terminal::type(const std::string& line) {
    const std::string bytes = line + "\n";
    EXPECT_EQ(write(terminal_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

Finished Terminal::finish() {
    while (readSome()) {
    }
    return {exitCodeOf(std::exchange(process_, -1)), unread_, ""};
}

}  // namespace zev::test
