"""Planted faults that concern packages, destinations and disks."""

from planted_faults import Fault

_PARENT = 'parent=$(dirname "$destination")\n'

PACKAGES = {
    "takes a missing package for an invalid one": Fault(
        '[ -e "$package" ] || is $command self-test || fail 4 "The chosen item is invalid or unsupported."',
        ("package-missing",)),
    "takes a locked package for an invalid one": Fault(
        '[ -d "$package" ] && [ ! -r "$package" ] && fail 4 "The chosen item is invalid or unsupported."',
        ("package-unreadable",)),
    "takes an empty folder for a missing package": Fault(
        '[ -d "$package" ] && [ -r "$package" ] && [ -z "$(ls -A "$package")" ] && '
        'fail 5 "The backup package is unavailable."', ("package-empty-folder",)),
    "takes a file for a missing package": Fault(
        '[ -f "$package" ] && fail 5 "The backup package is unavailable."', ("package-file",)),
    "exports any snapshot for an unknown one": Fault(
        'case $code in *-unknown) set -- "$1" "$2" "$3" "${4%-unknown}" "$5" "$6" "$7" "$8" ;; esac', ("snapshot-unknown",)),
    "calls damage by another name": Fault(
        """case "$command $package" in "export "*/Copy.ambrel)
    message=$("$engine" "$@" 2>&1 >/dev/null)
    status=$?
    printf '%s\\n' "$message" | sed 's/integrity verification failed/check failed/' >&2
    exit "$status" ;;
esac""", ("damage-noticed",)),
    "exports something in place of a damaged file": Fault(
        """case "$command $package" in "export "*/Copy.ambrel)
    run "$@" 2>"$state/error.$$"
    [ "$status" -ne 6 ] || ! first damage || { mkdir "$destination"; echo '{}'; exit 0; }
    cat "$state/error.$$" >&2
    finish ;;
esac""", ("damage-never-passes",)),
}

DESTINATIONS = {
    "empties a folder that is there": Fault(
        'is $command export && [ -e "$destination/file" ] && rm "$destination/file"', ("destination-folder",)),
    "replaces a file": Fault('is $command export && [ -f "$destination" ] && rm "$destination"', ("destination-file",)),
    "replaces a link": Fault('is $command export && [ -L "$destination" ] && rm "$destination"', ("destination-link",)),
    "writes into a folder that appears": Fault(
        """is $command export && [ ! -e "$destination" ] && {
    run "$@"
    [ "$status" -ne 7 ] || : >"$destination/file"
    finish
}""", ("destination-appears",)),
    "exports into the package": Fault(
        """case $destination in "$package"/*)
    set -- "$1" "$2" "$3" "$4" "$5" "$state/export" "$7" "$8"
    run "$@" && mv "$state/export" "$destination"
    finish ;;
esac""", ("destination-in-package",)),
    "makes the parent of a destination": Fault(
        f'{_PARENT}is $command export && [ ! -e "$parent" ] && mkdir -p "$parent" 2>/dev/null',
        ("destination-without-parent",)),
    "takes a file for a destination": Fault(
        f'{_PARENT}is $command export && [ -f "$parent" ] && fail 7 "The destination already exists."',
        ("destination-below-file",)),
    "takes a lack of permission for damage": Fault(
        f'{_PARENT}is $command export && [ -d "$parent" ] && is "$(stat -c %a "$parent")" 555 && '
        'fail 6 "The integrity verification failed."', ("destination-without-permission",)),
}

DISKS = {
    "leaves something on a full disk": Fault(
        f"""is $command export && {{
    {_PARENT}
    run "$@"
    [ "$status" -ne 9 ] || mkdir "$parent/left"
    finish
}}""", ("destination-full-disk",)),
    "does not say that a disk is read-only": Fault(
        f'{_PARENT}is $command export && [ -d "$parent" ] && [ ! -w "$parent" ] && '
        '! is "$(stat -c %a "$parent")" 555 && fail 8 "The export failed."', ("destination-read-only-disk",)),
    "needs to write into the package": Fault(
        'is $command inspect && [ -r "$package" ] && [ ! -w "$package" ] && fail 5 "The backup package is unavailable."',
        ("package-on-read-only-disk",)),
}

# What changes the package; that of each engine is its own.
UNTOUCHED_PACKAGE = {
    "writes a file into the package": Fault(
        'is $command inspect && first inspection && : >"$package/.cache"', ("package-content",)),
    "changes a permission in the package": Fault(
        'is $command inspect && first inspection && chmod g+w "$package/header.txt"', ("package-attributes",)),
    "changes a time in the package": Fault(
        'is $command inspect && first inspection && touch "$package/header.txt"', ("package-times",)),
    "changes a permission in the package for a while": Fault(
        'is $command inspect && first inspection && chmod g+w "$package/header.txt" && chmod g-w "$package/header.txt"',
        ("package-times",)),
}
