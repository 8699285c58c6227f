#!/usr/bin/env bash
# Small Debian systems in folders, for tools that try something in them. To be sourced from the folder of the project; then
# use_release sets `release`, `suite` and `root`, and the functions below work on the system in `root`.

readonly home=/home/tester
readonly tree=$home/ambrel

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}

# use_release NAME: 12 or bookworm, 13 or trixie, unstable or sid. Returns 1 for any other name.
use_release() {
    case $1 in
    12 | bookworm) release=12 suite=bookworm ;;
    13 | trixie) release=13 suite=trixie ;;
    unstable | sid) release=unstable suite=unstable ;;
    *) return 1 ;;
    esac
    [ "$(id -u)" -eq 0 ] || fail "Another system can be entered by root alone: sudo $0 …"
    root=$PWD/build/distributions/$release
}

# Runs a command whose mounts and processes end with it, and with this script. `namespaces` names further ones of its own.
namespaces=()
alone() {
    setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child "${namespaces[@]}" --mount-proc -- "$@"
}

# Makes the system, with a user who may use sudo. Made beside its place, so that what is in its place is complete.
make_system() {
    Tools/install-dependencies distribution
    local mirror setting options=()
    apt-get -qq update
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' 'Label: Debian' |
        sort --unique | head -n 1)
    [ -n "$mirror" ] || fail "This system's apt knows no mirror of Debian."
    # How this system reaches the mirror, and how it takes its dates.
    while read -r setting; do
        options+=("--aptopt=$setting")
    done < <(apt-config dump | grep -E '^Acquire::(Check-|Retries|https?::)')
    rm -rf --one-file-system "$root" "$root.new"
    mkdir -p "$(dirname "$root")"
    alone mmdebstrap --mode=root --variant=minbase --include=sudo "${options[@]}" \
        "$suite" "$root.new" "$mirror"
    echo "127.0.0.1 localhost $(hostname)" >"$root.new/etc/hosts"
    chroot "$root.new" useradd --create-home --shell /bin/bash tester
    echo 'tester ALL=(ALL) NOPASSWD: ALL' >"$root.new/etc/sudoers.d/tester"
    mv "$root.new" "$root"
}

# Puts the tree of the commit into the user's home folder, instead of an earlier one, and sets `commit` to its name.
copy_tree() {
    commit=$(git rev-parse --short HEAD)
    rm -rf --one-file-system "${root:?}$tree"
    mkdir "$root$tree"
    git archive "$commit" | tar -x -C "$root$tree"
    chroot "$root" chown -R tester: "$tree"
    cp --dereference /etc/resolv.conf "$root/etc/resolv.conf"
}

# inside USER COMMAND...: runs a command in the system, in the user's tree or in root's folder.
inside() {
    local user=$1 folder=$tree user_home=$home path=/usr/local/bin:/usr/bin:/bin
    shift
    [ "$user" != root ] || folder=/root user_home=/root path=$path:/usr/sbin:/sbin
    alone bash -euc '
        root=$1 user=$2 home=$3 folder=$4 path=$5
        shift 5
        mount --bind "$root" "$root"
        mount -t proc proc "$root/proc"
        mount --rbind /sys "$root/sys"
        mount --bind /dev "$root/dev"
        mount -t devpts -o newinstance,ptmxmode=0666,gid=5,mode=620 devpts "$root/dev/pts"
        mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
        # A folder as the root would not do: a user who is confined to one is granted no namespaces.
        cd "$root"
        pivot_root . .
        umount --lazy .
        # This shell stays above the command, to collect the processes that nobody else waits for.
        setpriv "--reuid=$user" "--regid=$user" --init-groups \
            env --ignore-environment --chdir="$folder" "HOME=$home" "USER=$user" "LOGNAME=$user" SHELL=/bin/bash \
            TERM=dumb "PATH=$path" "$@" || exit
    ' inside "$root" "$user" "$user_home" "$folder" "$path" "$@" </dev/null
}
