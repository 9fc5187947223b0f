#!/usr/bin/env bash
# The completion scripts in their shells: bash with bash-completion loaded
# completes real command lines; zsh and fish load theirs (fish also
# completes, when it is installed). The scripts ask the `pictray` found on
# PATH, here the one given.
#
#   shell_completion.sh PICTRAY BASH_SCRIPT ZSH_SCRIPT FISH_SCRIPT

set -u
PICTRAY=$(realpath "$1")
BASH_SCRIPT=$(realpath "$2")
ZSH_SCRIPT=$(realpath "$3")
FISH_SCRIPT=$(realpath "$4")

source "$(dirname "$0")/e2e-checks.sh"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
PATH=$(dirname "$PICTRAY"):$PATH
export PATH
[ "$(command -v pictray)" -ef "$PICTRAY" ] || { echo "FAIL: pictray on PATH is not $PICTRAY"; exit 1; }

# bash_complete LINE: what Tab offers at the end of LINE, one per line, sorted.
bash_complete() {
    bash --norc --noprofile -c '
        source /usr/share/bash-completion/bash_completion
        source "$1"
        COMP_LINE=$2
        COMP_POINT=${#COMP_LINE}
        read -ra COMP_WORDS <<<"$COMP_LINE"
        [[ $COMP_LINE == *" " ]] && COMP_WORDS+=("")
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        _pictray pictray "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
        printf "%s\n" "${COMPREPLY[@]}"' _ "$BASH_SCRIPT" "$1" | sort
}

# expect_bash LINE EXPECTED...: Tab offers exactly EXPECTED.
expect_bash() {
    local line=$1; shift
    local got want
    got=$(bash_complete "$line")
    want=$(printf '%s\n' "$@" | sort)
    if [ "$got" = "$want" ]; then pass "bash: '$line'"; else fail "bash: '$line' gave [${got//$'\n'/ }], not [${want//$'\n'/ }]"; fi
}

expect_bash "pictray ex" export
expect_bash "pictray prefs set appea" appearance
expect_bash "pictray prefs set appearance " system light dark
expect_bash "pictray export home --format png" png1 png2 png3
expect_bash "pictray --ver" --version

arrows=$(bash_complete "pictray export arrow-le")
if grep -qx arrow-left <<<"$arrows" && grep -qx arrow-left-circle <<<"$arrows" &&
    ! grep -qv '^arrow-le' <<<"$arrows"; then
    pass "bash: 'pictray export arrow-le' lists the arrow-left icons ($(wc -l <<<"$arrows"))"
else
    fail "bash: 'pictray export arrow-le' gave [${arrows//$'\n'/ }]"
fi
grep -qx heart-broken <<<"$(bash_complete "pictray favorites add heart-b")" &&
    pass "bash: favorites add completes icon names" || fail "bash: favorites add completes icon names"

mkdir -p "$work/files" && touch "$work/files/out.svg"
files=$(cd "$work/files" && bash_complete "pictray export home -o ")
[ "$files" = out.svg ] && pass "bash: -o completes files" || fail "bash: -o completes files, gave [$files]"

# The time one Tab takes in an interactive bash, asking the program: after
# "export a" (every icon name starting with a: the whole catalogue is loaded).
bash --norc --noprofile -c '
    source /usr/share/bash-completion/bash_completion
    source "$1"
    COMP_LINE="pictray export a"
    COMP_POINT=${#COMP_LINE}
    COMP_WORDS=(pictray export a)
    COMP_CWORD=2
    started=$EPOCHREALTIME
    for _ in 1 2 3 4 5 6 7 8 9 10; do _pictray pictray a export; done
    ended=$EPOCHREALTIME
    echo "measure: bash Tab after \"pictray export a\" (${#COMPREPLY[@]} icon names): $(( (${ended/./} - ${started/./}) / 10000 )) ms"
    # For scale, on the same machine at the same time: the quickest command.
    started=$EPOCHREALTIME
    for _ in 1 2 3 4 5 6 7 8 9 10; do pictray --version >/dev/null; done
    ended=$EPOCHREALTIME
    echo "measure: pictray --version: $(( (${ended/./} - ${started/./}) / 10000 )) ms"
' _ "$BASH_SCRIPT"

if command -v zsh >/dev/null; then
    if zsh -f -c 'autoload -U compinit && compinit -u -d "$1/zcompdump" && source "$2" &&
            [[ $_comps[pictray] == _pictray ]]' _ "$work" "$ZSH_SCRIPT" 2>"$work/zsh.err" &&
        [ ! -s "$work/zsh.err" ]; then
        pass "zsh: the script loads and binds pictray"
    else
        fail "zsh: the script loads and binds pictray: $(cat "$work/zsh.err")"
    fi
    # zsh_tab TEXT PATTERN: types TEXT and Tab in an interactive zsh; true once
    # what the terminal shows matches PATTERN.
    zsh_tab() {
        mkdir -p "$work/zfunctions" && cp "$ZSH_SCRIPT" "$work/zfunctions/_pictray"
        timeout 20 zsh -f -c '
            zmodload zsh/zpty
            zpty shell zsh -f -i
            zpty -w shell "fpath=($1 \$fpath); autoload -U compinit; compinit -u -D"
            zpty -n -w shell "$2"$'"'\\t'"'
            zpty -r shell shown "$3"' _ "$work/zfunctions" "$1" "$2" >/dev/null
    }
    zsh_tab "pictray prefs set appearance " "*dark*light*system*" &&
        pass "zsh: setting values" || fail "zsh: setting values"
    zsh_tab "pictray export arrow-left" "*arrow-left-circle*" &&
        pass "zsh: icon names" || fail "zsh: icon names"
else
    echo "SKIP: zsh is not installed"
fi

if command -v fish >/dev/null; then
    if fish --no-config -c "source '$FISH_SCRIPT'" 2>"$work/fish.err" && [ ! -s "$work/fish.err" ]; then
        pass "fish: the script loads"
    else
        fail "fish: the script loads: $(cat "$work/fish.err")"
    fi
    got=$(fish --no-config -c "source '$FISH_SCRIPT'; complete -C'pictray ex'")
    [ "$got" = "export	Write one icon in one format" ] && pass "fish: 'pictray ex'" ||
        fail "fish: 'pictray ex' gave [$got]"
    got=$(fish --no-config -c "source '$FISH_SCRIPT'; complete -C'pictray prefs set appearance '" | sort | tr '\n' ' ')
    [ "$got" = "dark light system " ] && pass "fish: setting values" || fail "fish: setting values gave [$got]"
else
    echo "SKIP: fish is not installed"
fi

echo "$failures failure(s)"
[ "$failures" -eq 0 ]
