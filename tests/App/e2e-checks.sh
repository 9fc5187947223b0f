# Sourced by the end-to-end scripts: checks that count failures, and a poll
# helper.

failures=0
pass() { echo "PASS: $*"; }
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
check() { # check DESCRIPTION COMMAND...
    local what=$1; shift
    if "$@"; then pass "$what"; else fail "$what"; fi
}

# wait_for SECONDS COMMAND...: polls until the command succeeds, giving up
# after SECONDS (generous: a loaded machine is slow, a quick one returns at
# once). Between polls it waits a tenth of a second on an empty pipe.
wait_for() {
    local deadline=$((SECONDS + $1)); shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS >= deadline)) && return 1
        read -rt 0.1 <> <(:) || true
    done
}
