#include "Completion.h"

// The scripts only carry the words over: what completes them is decided by
// the program (Completion.cpp), from the same table as --help.
namespace Cli {
namespace {

constexpr const char* bashScript =
    R"BASH(# bash completion for pictray                              -*- shell-script -*-
# Made by `pictray completions bash`; the program answers `pictray complete`.

_pictray()
{
    local cur prev words cword
    _init_completion -n =: || return

    local program=${words[0]}
    [[ $program == */* && -x $program ]] || program=pictray
    local -a lines
    mapfile -t lines < <("$program" complete bash "${words[@]:1:cword-1}" "$cur" 2>/dev/null)
    case ${lines[0]-} in
    :files) _filedir; return ;;
    :dirs) _filedir -d; return ;;
    esac
    COMPREPLY=("${lines[@]}")

    # Bash splits words at = and :, and replaces only what follows the last one.
    local breaks=${COMP_WORDBREAKS//[^=:]/}
    if [[ -n $breaks && $cur == *["$breaks"]* ]]; then
        local prefix=${cur%"${cur##*["$breaks"]}"}
        COMPREPLY=("${COMPREPLY[@]#"$prefix"}")
    fi
    local word
    for word in "${COMPREPLY[@]}"; do
        [[ $word == *[=:] ]] && compopt -o nospace && break
    done
} &&
    complete -F _pictray pictray

# ex: filetype=sh
)BASH";

constexpr const char* zshScript = R"ZSH(#compdef pictray
# Made by `pictray completions zsh`; the program answers `pictray complete`.

_pictray() {
    local program=${words[1]}
    [[ $program == */* && -x $program ]] || program=pictray
    local -a lines candidates shown open
    local line word
    lines=("${(@f)$("$program" complete zsh "${(@)words[2,CURRENT-1]}" "$PREFIX$SUFFIX" 2>/dev/null)}")
    case ${lines[1]-} in
    :files) _files; return ;;
    :dirs) _files -/; return ;;
    esac
    for line in $lines; do
        [[ -n $line ]] || continue
        word=${line%%$'\t'*}
        if [[ $word == *[=:] ]]; then
            open+=("$word")
        elif [[ $line == *$'\t'* ]]; then
            candidates+=("$word")
            shown+=("$word  -- ${line#*$'\t'}")
        else
            candidates+=("$word")
            shown+=("$word")
        fi
    done
    (( $#candidates )) && compadd -l -d shown -- "${candidates[@]}"
    (( $#open )) && compadd -S '' -- "${open[@]}"
    return 0
}

if [[ $funcstack[1] == _pictray ]]; then
    _pictray "$@"
else
    compdef _pictray pictray
fi
)ZSH";

constexpr const char* fishScript = R"FISH(# fish completion for pictray
# Made by `pictray completions fish`; the program answers `pictray complete`.

function __pictray_complete
    set -l tokens (commandline -opc)
    set -l current (commandline -ct)
    set -l program $tokens[1]
    string match -q '*/*' -- $program; or set program pictray
    set -l lines ($program complete fish $tokens[2..-1] "$current" 2>/dev/null)
    switch "$lines[1]"
        case :files
            __fish_complete_path $current
        case :dirs
            __fish_complete_directories $current
        case '*'
            printf '%s\n' $lines
    end
end

complete -c pictray -f -a '(__pictray_complete)'
)FISH";

} // namespace

QString completionScript(Shell shell)
{
    switch (shell) {
    case Shell::bash:
        return QString::fromUtf8(bashScript);
    case Shell::zsh:
        return QString::fromUtf8(zshScript);
    case Shell::fish:
        return QString::fromUtf8(fishScript);
    }
    return {};
}

} // namespace Cli
