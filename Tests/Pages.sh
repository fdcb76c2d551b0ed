#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
# SPDX-License-Identifier: MIT
# Pages.sh code|run BIN [PAGE...]: "code" compares the code of the pages with the files that it is from, and
# looks whether our commands in them have the right arguments. "run" follows the pages in a new home. The comment
# before a block says what it is:
#
#     FILE                    the whole file, without the two lines of the licence
#     FILE: FIRST .. LAST     the lines from the first that begins with FIRST to the next one, equally indented,
#                             that begins with LAST
#     run                     each command succeeds
#     run, ends with N        the last command ends with this status
#     run, other terminal     the commands go on beside the next ones, from the first line that they print, and
#                             succeed before the page ends
#     output                  what the last commands of this terminal have printed; "..." stands for any lines
#
# Of commands without a comment, only the command lines are checked. Plain text needs no source.
set -uo pipefail
mode=$1
PATH=$2:$PATH
bin=$2
sources=$(cd "$(dirname "$0")/.." && pwd)
failed=0
cd "$sources" || exit
((${#@} > 2)) && pages=("${@:3}") || pages=(README.md Documentation/*.md)
unset XDG_DATA_HOME XDG_CONFIG_HOME
folder=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$folder"' EXIT

fault() {
    printf '%s: %s\n' "$place" "$*" >&2
    failed=1
}

# region FILE [FIRST LAST]: prints it as a page shows it.
region() {
    awk -v first="${2-}" -v last="${3-}" '
        first == "" { if (FNR > 2 || !/SPDX/) print; next }
        { indented = match($0, /[^ ]|$/) - 1; text = substr($0, indented + 1) }
        !begun && index(text, first) == 1 { begun = 1; margin = indented }
        begun { print substr($0, margin + 1) }
        begun && indented == margin && index(text, last) == 1 { ended = 1; exit }
        END { exit first != "" && !ended }' "$1"
}

check_code() {
    local from shown
    [[ $source =~ ^([^:]+)(: (.+) \.\. (.+))?$ ]] || { fault "no comment says which file this is from"; return; }
    from=$(region "${BASH_REMATCH[1]}" "${BASH_REMATCH[3]}" "${BASH_REMATCH[4]}") ||
        { fault "there is no '$source'"; return; }
    shown=$(diff <(printf '%s\n' "${block[@]}") <(echo "$from")) || fault "the page (<) and the file (>) differ:" "$shown"
}

# Without a tablet a command cannot succeed, but its options are looked at first.
check_command() {
    local command=${1%% #*} output status
    command=${command//\/dev\/ttyUSB0//dev/no-such-port}
    case $command in
        ./dev\ *) ./dev help | grep -q "^  $(cut -d' ' -f2 <<<"$command") " || fault "./dev has no such command: $1" ;;
        digitizer\ * | tablet-simulator\ * | '' | '#'*)
            output=$(cd "$folder" && HOME=$folder timeout 20 bash -c "$command" 2>&1 </dev/null)
            status=$?
            [[ $status == 0 || ($status == 1 && $output == *'digitizer: '*) ]] ||
                fault "'$1' ended with $status: $output" ;;
        *) fault "'$1' is none of our commands: '<!-- run -->' before the block runs it" ;;
    esac
}

# run_lines STATUS: each command of the block, in this shell.
run_lines() {
    local command='' line status=0 number=0
    : >"$folder/output"
    for line in "${block[@]}"; do
        ((status == 0)) || break
        ((++number))
        command+=$line$'\n'
        [[ $line == *\\ ]] && continue
        eval "$command" >>"$folder/output" 2>&1 </dev/null
        status=$?
        command=
    done
    ((number == ${#block[@]} && status == $1)) || fault "ended with $status, after:" "$(cat "$folder/output")"
}

run_beside() {
    (eval "$(printf '%s\n' "${block[@]}")") >"$folder/beside" 2>&1 </dev/null &
    beside+=($!)
    for _ in $(seq 200); do
        [[ -s $folder/beside ]] && return
        sleep 0.1
    done
    fault "nothing is printed"
}

check_output() {
    local line pattern='' output
    output=$(sed "s|$HOME|/home/ann|g" "$folder/output")$'\n'
    for line in "${block[@]}"; do
        [[ $line == ... ]] && pattern+='*' || pattern+=$(sed 's/[][*?\\]/\\&/g' <<<"$line")$'\n'
    done
    [[ $output == $pattern ]] || fault "this was printed:" "$output"
}

take_block() {
    case $mode:$source in
        code:run* | code:output) ;;
        code:) case $language in
            '') ;;
            sh) for line in "${block[@]}"; do check_command "$line"; done ;;
            *) check_code ;;
        esac ;;
        code:*) check_code ;;
        'run:run, other terminal') run_beside ;;
        run:run*) run_lines "$(grep -oE '[0-9]+$' <<<"$source" || echo 0)" ;;
        run:output) check_output ;;
    esac
}

# follow PAGE: in a shell of its own, whose folder and variables the commands change.
follow() {
    local number=0 inside=0 source='' before='' line block=() beside=()
    export HOME=$folder/${1//\//-}
    mkdir "$HOME"
    if [[ $mode == run && $bin != "$sources/build/release/bin" ]] && grep -q '^\./dev install' "$1"; then
        echo "$1 is skipped: ./dev installs build/release, which is not this build"
        return
    fi
    while IFS= read -r line <&3; do
        ((++number))
        if [[ $line == '```'* ]] && ((!inside)); then
            inside=1 place=$1:$number language=${line#'```'} source=$before block=()
        elif [[ $line == '```' ]]; then
            inside=0
            take_block
        elif ((inside)); then
            block+=("$line")
        elif [[ $line == '    '* ]]; then
            place=$1:$number fault "indented code; use a fence"
        fi
        [[ $line =~ ^'<!-- '(.*)' -->'$ ]] && before=${BASH_REMATCH[1]} || before=
    done 3<"$sources/$1"
    for job in "${beside[@]}"; do
        wait "$job" || fault "the other terminal ended with $?"
    done
    return $failed
}

for page in "${pages[@]}"; do
    (follow "$page") || failed=1
done
exit $failed
