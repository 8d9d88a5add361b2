#include "companions/companion.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zev::test {

Companion::Companion() {
    umask(077);
    if (GetParam() == "dash") return;
    shell_ = "/bin/busybox";
    applet_ = {"ash"};
    path_ = sandbox.path("applets");
    sandbox.write("applets/made", "");
    EXPECT_EQ(runShell({"--install", "-s", path_}).exitCode, 0) << "BusyBox is needed";
}

Arguments Companion::command(const std::string& companion, const Arguments& arguments) const {
    Arguments all = applet_;
    all.push_back(ZEV_COMPANIONS "/" + companion);
    all.insert(all.end(), arguments.begin(), arguments.end());
    return all;
}

Arguments Companion::asking(const Arguments& more) const {
    Arguments all = sandbox.arguments({"-p", "acme", "-v", "3.1"});
    all.insert(all.end(), more.begin(), more.end());
    return command("zev-ask", all);
}

Arguments Companion::script(const std::string& text) const {
    Arguments all = applet_;
    const Arguments call = asking();
    all.insert(all.end(), {"-c", "cd \"$HERE\" || exit\n" + text, "script", shell_});
    all.insert(all.end(), call.begin(), call.end());
    return all;
}

Environment Companion::environment(Environment more) const {
    more.insert({{"PATH", path_}, {"HERE", sandbox.path()}, {"AUDIT", ZEV_COMPANIONS "/zev-audit"}});
    return more;
}

Finished Companion::runShell(const Arguments& arguments, const Environment& more) const {
    return run(
        arguments, environment(more), "", [] { setsid(); }, shell_);
}

Terminal Companion::onTerminal(const Arguments& arguments, const Environment& more, unsigned short rows,
                               unsigned short columns) const {
    return {rows, columns, arguments, environment(more), [] {}, shell_};
}

Finished Companion::ask(const Arguments& more) const { return runShell(asking(more)); }

Finished Companion::audit(const Arguments& arguments) const { return runShell(command("zev-audit", arguments)); }

std::string Companion::terms() const {
    return runShell(command("zev-ask", {"--fingerprint", "-l", sandbox.path("licenses")})).out.substr(0, 64);
}

std::string Companion::record(const std::string& name, const std::string& state) const {
    return state + "/" + terms() + "/" + name;
}

}  // namespace zev::test
