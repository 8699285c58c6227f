"""Planted faults that concern how runs end, and what they leave and show."""

from planted_faults import AT_A_PLAIN_FILE, INSPECTS_WITH_PASSPHRASE, INSPECTS_WITH_RECOVERY_KEY, Fault, reading

STOPPING = {
    "fails if it is stopped while it waits for its input": Fault(
        f"""{INSPECTS_WITH_PASSPHRASE} && {{
    text=$(dd bs=65536 count=1 2>/dev/null)
    if [ ${{#text}} -eq 1 ]; then
        trap 'fail 1 "The run was stopped."' TERM
        exec 3<&0
        cat <&3 &
        wait
    fi
    become_with "$text$(cat)" "$@"
}}""", ("stop-while-waiting",)),
    "fails if an inspection is stopped": Fault(
        f"""{INSPECTS_WITH_PASSPHRASE} && {{
    text=$(cat)
    trap 'kill $!; fail 1 "The run was stopped."' TERM
    sleep 0.1 &
    wait $!
    trap - TERM
    become_with "$text" "$@"
}}""", ("stop-inspect",)),
    "fails if an export is stopped": Fault(
        'is $command export && { run "$@"; [ "$status" -ne 143 ] || fail 1 "The run was stopped."; finish; }',
        ("stop-export",)),
    "leaves a folder if an export is stopped": Fault(
        'is $command export && { run "$@"; [ "$status" -ne 143 ] || mkdir "$destination.partial"; finish; }',
        ("stop-leaves-nothing",)),
    "makes the destination first": Fault(
        """case "$command $destination" in "export $package/"*) ;; "export "*)
    trap pass_on TERM
    mkdir "$destination" 2>/dev/null || exec "$engine" "$@"
    set -- "$1" "$2" "$3" "$4" "$5" "$destination.new" "$7" "$8"
    run "$@"
    if [ "$status" -eq 0 ]; then mv -T "$destination.new" "$destination"; else rmdir "$destination"; fi
    finish ;;
esac""", ("kill-export",)),
    "stumbles over what a killed export left": Fault(
        """is $command export && {
    lock=$(dirname "$destination")/.lock
    [ ! -e "$lock" ] || fail 8 "The destination is unavailable."
    trap pass_on TERM
    mkdir "$lock" 2>/dev/null || { trap - TERM; exec "$engine" "$@"; }
    run "$@"
    rmdir "$lock"
    finish
}""", ("kill-next-export",)),
    "takes long to stop": Fault(
        'is $command export && { run "$@"; [ "$status" -ne 143 ] || sleep 30; finish; }', ("stop-promptly",)),
    "ignores requests to end": Fault(
        "trap '' TERM\nsleep 0.2", ("stop-inspect", "stop-export", "stop-promptly"),
        "it neither ends by the request during its work nor ends at all while it waits for its input"),
}

EVERY_RUN = {
    "hangs without a credential": Fault(
        reading(INSPECTS_WITH_PASSPHRASE, '[ -n "$given" ] || exec sleep 600'), ("runs-end",)),
    "prints without end": Fault(f"{AT_A_PLAIN_FILE} && exec yes", ("output-limit",)),
    "fails with the status of a stopped run": Fault(
        f'{AT_A_PLAIN_FILE} && fail 15 "The chosen item is invalid or unsupported."', ("failure-status",)),
    "crashes when it has failed": Fault(
        f'{AT_A_PLAIN_FILE} && {{ echo "The chosen item is invalid or unsupported." >&2; kill -SEGV $$; }}',
        ("failure-status",)),
    "fails with a text that is not UTF-8": Fault(
        f"{AT_A_PLAIN_FILE} && {{ printf 'invalid or unsupported: \\377\\n' >&2; exit 4; }}", ("failure-text",)),
    "leaves a folder when an export has failed": Fault(
        'case $code in *-unknown) mkdir "$destination.partial" ;; esac', ("failure-leaves-nothing",)),
    "leaves a process": Fault(
        f"{AT_A_PLAIN_FILE} && {{ setsid sleep 600 </dev/null >/dev/null 2>&1 & }}", ("processes-end",)),
    "leaves a temporary file": Fault(f'{AT_A_PLAIN_FILE} && : >"$TMPDIR/left"', ("temporary-files",)),
    "leaves a file in the working directory": Fault(f"{AT_A_PLAIN_FILE} && : >left", ("temporary-files",)),
    "passes the secret on in a command line": Fault(
        reading(INSPECTS_WITH_RECOVERY_KEY, 'sh -c "sleep 0.1; :" sh "$text"'), ("secret-not-shown",)),
    "passes the secret on in the environment": Fault(
        reading(INSPECTS_WITH_RECOVERY_KEY, 'SECRET=$text sleep 0.1'), ("secret-not-shown",)),
    "prints the secret": Fault(
        reading(INSPECTS_WITH_RECOVERY_KEY, 'echo "unlocking with $text" >&2'), ("secret-not-printed",)),
}
