# SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
# SPDX-License-Identifier: MIT
# Sourced at the top of each transcript: a home of its own, the programs of one build, and functions for
# what runs beside the commands. CTest sets PROGRAMS; by hand the release build is used.
folder=$PWD
PATH=${PROGRAMS:-$TESTDIR/../../build/release/bin}:$PATH
sources=$(cd "$TESTDIR/../.." && pwd)
export HOME="$folder/home" XDG_DATA_HOME="$folder/home" XDG_CONFIG_HOME="$folder/home"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC
trap 'kill $started 2>/dev/null' EXIT

# What differs from run to run is shown by name.
plain() {
    sed "s|$folder|DIR|g; s|$sources|SOURCES|g; s|/dev/pts/[0-9]*|PTS|g; s|([0-9][0-9]*)|(PID)|g" "$@"
}

# The programs: first the output, then the errors, in an order that does not depend on time. Status 124:
# the program did not end. "command digitizer" runs it without this.
run() {
    timeout --foreground -k 5 30 "$@" >"$folder/.output" 2>"$folder/.errors"
    status=$?
    plain "$folder/.output"
    plain "$folder/.errors" >&2
    return $status
}
digitizer() { run digitizer "$@"; }
tablet_simulator() { run tablet-simulator "$@"; }

# await COMMAND...: repeats the command until it succeeds, for at most 20 seconds.
await() {
    for _ in $(seq 400); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.05
    done
    echo "waited in vain for: $*"
    return 1
}

# start NAME PROGRAM ARGUMENT...: runs a program beside the next commands, with $input as its input; its
# output and errors go to NAME and NAME.errors.
start() {
    name=$1
    shift
    rm -f "$name" "$name.errors" "$name.process" # what an earlier program of that name printed
    (exec timeout --foreground -k 5 30 sh -c 'echo $$ >"$0"; exec "$@"' "$name.process" "$@" \
        <"${input:-/dev/null}" >"$name" 2>"$name.errors") &
    eval "$name=$!"
    started="$started $!"
}

# signal NAME SIGNAL: to the program itself; "timeout" sometimes passes a signal on twice.
signal() {
    kill -"$2" "$(cat "$1.process")"
}

# ended NAME [FILTER...]: waits for the end and shows what the program printed, its output as FILTER has it.
# Not in a pipe, where nothing can be waited for.
ended() {
    name=$1
    shift
    eval "wait \$$name"
    status=$?
    plain "$name" | "${@:-cat}"
    plain "$name.errors" >&2
    return $status
}

# stop NAME [FILTER...]: the same after the signal that a user and a desktop send to end a program.
stop() {
    signal "$1" TERM
    ended "$@"
}

# tablet OPTION...: a simulated tablet at the port DIR/tablet, in place of an earlier one.
tablet() {
    [ -z "$simulator" ] || stop simulator >/dev/null 2>&1
    start simulator tablet-simulator --link "$folder/tablet" "$@"
    await test -L "$folder/tablet"
}

# description NAME [TEMPLATE [MORE]]: prints a description of a tablet with four buttons; MORE elements at
# its end.
description() {
    template=${2:-XXXXYYYYB}
    cat <<END
<device name="$1"><ioPort><serial baudrate="9600" databit="8" parity="None" stopbit="1" flowctrl="none"/></ioPort>
<resolution unit="LPMM">10</resolution><reportFormat length="${#template}">$template</reportFormat>
<buttons count="4" length="1"><button>1</button><button>2</button><button>3</button><button>4</button></buttons>
$3</device>
END
}
