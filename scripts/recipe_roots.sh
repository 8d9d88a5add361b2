# shellcheck shell=bash disable=SC2154
# Sourced by scripts/test-recipes: the checks, the root directories in which recipes run, and the person at the terminal.

passed=0 failed=0

# check SENTENCE COMMAND...: runs the command, counts whether it succeeds, and shows its output if it does not.
check() {
    local sentence="$recipe $1"
    shift
    if "$@" >"$work/output.$recipe" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED: $sentence" && sed 's/^/    /' "$work/output.$recipe"
    fi
}

# fails_with STATUS WORDS COMMAND...: whether the command ends with this status and prints these words.
fails_with() {
    local status=$1 words=$2 output code
    shift 2
    output=$("$@" 2>&1)
    code=$?
    printf '%s\nstatus %s, and %s is expected, with: %s\n' "$output" "$code" "$status" "$words"
    [ "$code" = "$status" ] && grep -qF "$words" <<<"$output"
}

new_root() {
    disk=$work/$recipe
    mkdir -p "$disk/upper" "$disk/work" "$disk/root"
    if ! mount -t overlay -o "lowerdir=/,upperdir=$disk/upper,workdir=$disk/work" overlay "$disk/root" ||
        ! mount --rbind /dev "$disk/root/dev" || ! mount --rbind /proc "$disk/root/proc"; then
        fail 'zev: cannot go on: the root directory for the recipe cannot be mounted.'
    fi
    cp -r "$work/media" "$disk/root/srv/"
    rm -rf "$disk/root/var/lib/zev"
}

# A command that waits for somebody who is not there is ended after so many seconds, with everything that it started.
limit=120
given=() # in the environment
inside() {
    timeout -s KILL "$limit" unshare --pid --fork --kill-child chroot "$disk/root" \
        env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb LC_ALL=C.UTF-8 "${given[@]}" "$@"
    local code=$?
    [ "$code" != 137 ] || echo "ended after $limit seconds"
    return "$code"
}

alone() { inside setsid -w "$@" </dev/null; }

# answering ANSWERS COMMAND: runs the command on a terminal and types each answer at a prompt; without answers, nobody is there.
# zev-ask drops what is typed before its first prompt. So a question mark is typed first, which repeats any prompt, until a
# prompt comes back.
answering() {
    # shellcheck disable=SC2086
    inside expect - "$2" $1 <<'END'
set timeout 1
proc await_prompt {meanwhile} {
    expect {
        {"2"} {}
        timeout { send -- $meanwhile; exp_continue }
        eof { exit [lindex [wait] 3] }
    }
}
spawn -noecho sh -c [lindex $argv 0]
set answers [lrange $argv 1 end]
if {[llength $answers]} {
    await_prompt ""
    send "?\r"
    await_prompt "?\r"
    send "[lindex $answers 0]\r"
}
foreach answer [lrange $answers 1 end] {
    await_prompt ""
    send "$answer\r"
}
set timeout -1
expect eof
exit [lindex [wait] 3]
END
}

# with NAME=VALUE COMMAND...
with() {
    given=("$1")
    "${@:2}"
    local code=$?
    given=()
    return "$code"
}
