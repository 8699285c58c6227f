"""Engines that are the stand-in but for one planted fault: a script that does something else and then becomes it."""

import pathlib
import shlex

_PRELUDE = r"""#!/bin/sh
engine={engine}
state={state}
passphrase={passphrase}
recovery_key={recovery_key}
smallest={smallest}
other={other}
is() {{ [ "$1" = "$2" ]; }}
# Whether it is the first time that this is asked.
first() {{ mkdir "$state/$1" 2>/dev/null; }}
# Fails the run: STATUS TEXT
fail() {{ echo "$2" >&2; exit "$1"; }}
# Becomes the engine, with another credential: CREDENTIAL ARGUMENT...
become_with() {{
    credential=$1
    shift
    exec "$engine" "$@" <<END
$credential
END
}}
# Runs the engine and passes a request to end on to it. Its status is in $status; where it has ended by the request,
# `finish` ends this process in the same way.
stopped=
child=
status=
pass_on() {{
    stopped=1
    [ -n "$child" ] || return
    # A new shell loses the request while it still has this one's trap.
    while [ ! -e "$state/started.$$" ]; do sleep 0.002; done
    kill -TERM "$child" 2>/dev/null
}}
run() {{
    trap pass_on TERM
    [ -z "$stopped" ] || {{ status=143; return; }}
    exec 3<&0
    {{ : >"$state/started.$$"; exec "$engine" "$@" <&3 3<&-; }} &
    child=$!
    [ -z "$stopped" ] || pass_on
    wait "$child"
    status=$?
    # The request to end has interrupted this, perhaps.
    [ -z "$stopped" ] || {{
        wait "$child"
        code=$?
        [ "$code" -eq 127 ] || status=$code
    }}
}}
finish() {{
    trap '' TERM
    [ "$status" -ne 143 ] || {{ trap - TERM; kill -TERM $$; }}
    exit "$status"
}}
# Prints what the engine prints, changed by sed: EXPRESSION ARGUMENT...
edit() {{
    expression=$1
    shift
    output=$("$engine" "$@")
    status=$?
    printf '%s\n' "$output" | sed "$expression"
    exit "$status"
}}
command=$1
package=$2
case $command in
self-test) factor= code= destination= ;;
inspect) factor=$3 code= destination= ;;
export) code=$4 destination=$6 factor=$7 ;;
esac
"""
_END = r"""
# The stand-in's own takes long, and says nothing about these faults.
is "$command" self-test && exit 0
exec "$engine" "$@"
"""


def write(file, script, **values):
    """Writes the engine. The values are what the prelude needs: engine, state, passphrase and so on."""
    quoted = {name: shlex.quote(str(value)) for name, value in values.items()}
    pathlib.Path(file).write_text(_PRELUDE.format(**quoted) + script + _END, encoding="utf-8")
    pathlib.Path(file).chmod(0o755)
