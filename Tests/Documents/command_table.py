"""How each command in a document is tried.

In the commands, build/release and build/debug stand for the build that is tested. `ambrel-recovery-app` is a link to
its application, `misbehaving-engine` its program of that name.
"""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Runs:
    """The test runs it as it stands, or `instead` a cheaper form that fails, too, if its names are wrong."""

    instead: str = ""


@dataclasses.dataclass(frozen=True)
class RunsIn:
    """Not run by the test but in another place, where `text` stands."""

    file: str
    text: str


@dataclasses.dataclass(frozen=True)
class OnlyChecked:
    """Run by nothing, for a reason. The test runs `check`, which says whether its names and options exist."""

    reason: str
    check: str



def _benchmark(check):
    return OnlyChecked("measures for minutes; ./test --thorough runs the quick form", check)


_NEEDS_ANOTHER_SYSTEM = "makes another system, with root's rights"
_TAKES_MINUTES = "takes minutes or more"
_CHANGES_THE_SYSTEM = "changes the system, with root's rights"
_INSTALL_CHECK = "apt --help | grep --word-regexp install"
_DESKTOP = OnlyChecked("needs more than 600 packages", "Tools/try-desktop --help | grep -e '--scale .*gnome|kde wayland|x11'")

HOW = {
    # README
    "sudo apt install ./ambrel-recovery_*.deb": OnlyChecked(
        _CHANGES_THE_SYSTEM, _INSTALL_CHECK),
    "ambrel-recovery-app": Runs("ambrel-recovery-app --self-test"),
    "./run": RunsIn("test", "env --unset=DISPLAY --unset=WAYLAND_DISPLAY ./run\n"),
    "./test": RunsIn(".ci/run", "./test --thorough\n"),
    "cmake --preset release && cmake --build --preset release": RunsIn(
        "Tools/pictures", 'cmake --preset release && cmake --build --preset release --target "$@"'),
    "build/release/AmbrelRecovery/AmbrelRecoveryApp --self-test": Runs(),
    "cmake --preset release -DAMBREL_RECOVERY_ENGINE=/path/to/ambrel-recovery": RunsIn(
        "test", '"-DAMBREL_RECOVERY_ENGINE=$PWD/build/release/StandInEngine/ambrel-recovery"'),
    # The user guide
    "ambrel-recovery-app --self-test": Runs(),
    # Testing
    "cmake --preset debug && cmake --build --preset debug": RunsIn("test", "build debug all --preset debug"),
    "ctest --preset debug -R ProcessRunner": Runs(
        "ctest --list-presets | grep debug && "
        "ctest --test-dir build/debug -R ProcessRunner --show-only | grep 'Total Tests: [1-9]'"),
    "ctest --preset debug -L concurrency": Runs(
        "ctest --test-dir build/debug -L concurrency --show-only | grep 'Total Tests: [1-9]'"),
    "ctest --preset release -R EndToEnd.Cancelling": Runs(
        "ctest --list-presets | grep release && "
        "ctest --test-dir build/release -R EndToEnd.Cancelling --show-only | grep 'Total Tests: 1$'"),
    "ctest --preset release -L end-to-end --parallel 4": Runs(
        "ctest --test-dir build/release -L end-to-end --parallel 4 --show-only | grep 'Total Tests: [1-9]'"),
    "build/debug/Tests/AmbrelRecoveryAppSupport/ProcessRunnerTests --gtest_filter='*Credential*'": Runs(),
    "AMBREL_APPLICATION=$PWD/build/release/AmbrelRecovery AMBREL_BUILD=$PWD/build/release /usr/bin/python3 "
    "Tests/EndToEnd/test_cancelling.py Cancelling.test_a_cancelled_export_keeps_the_secret": Runs(),
    "AMBREL_STORM_RUNS=10000 AMBREL_STORM_SEED=1 "
    "build/release/Tests/AmbrelRecoveryAppSupport/ProcessRunnerStormTests": Runs(
        "AMBREL_STORM_RUNS=20 AMBREL_STORM_SEED=1 "
        "build/release/Tests/AmbrelRecoveryAppSupport/ProcessRunnerStormTests"),
    # Fewer runs of the model would not let every outcome happen.
    "AMBREL_STORM_RUNS=10000 AMBREL_STORM_SEED=1 "
    "build/release/Tests/AmbrelRecoveryApp/Model/RecoveryModelStormTests": RunsIn(
        "Tests/AmbrelRecoveryApp/Model/CMakeLists.txt",
        "# 500 runs; set AMBREL_STORM_RUNS for more.\nambrel_add_test(RecoveryModelStormTests\n"),
    "sudo Tools/try-distribution 13": OnlyChecked(
        _NEEDS_ANOTHER_SYSTEM, "Tools/try-distribution --help | grep '13 or trixie'"),
    "sudo Tools/try-distribution 13 ./test --quick": OnlyChecked(
        _NEEDS_ANOTHER_SYSTEM,
        r"Tools/try-distribution --help | grep '\[command\.\.\.\]' && ./test --help | grep -e --quick"),
    "sudo Tools/try-package 12": OnlyChecked(
        _NEEDS_ANOTHER_SYSTEM, "Tools/try-package --help | grep '^release  *12 or bookworm, 13'"),
    "Tools/try-desktop kde wayland": _DESKTOP,
    "Tools/try-desktop --scale 1.5 gnome x11": _DESKTOP,
    "gdb -s build/release/DebugInformation/AmbrelRecoveryApp.debug -e build/release/AmbrelRecovery/AmbrelRecoveryApp":
        OnlyChecked("no test needs gdb, and it may be missing; addr2line reads the same file",
                    "grep --quiet 'DebugInformation/TARGET.debug' CMake/AmbrelTargets.cmake"),
    # Only an optimized build has the file.
    "addr2line -Cfe build/release/DebugInformation/AmbrelRecoveryApp.debug ADDRESS": Runs(
        "file=build/release/DebugInformation/AmbrelRecoveryApp.debug; [ ! -d build/release/DebugInformation ] || "
        "addr2line -Cfe $file $(nm $file | awk '$3 == \"main\" {print $1}') | grep 'main.cpp:[1-9]'"),
    "Tools/fuzz": OnlyChecked(_TAKES_MINUTES, r"Tools/fuzz --help | grep '\[target \[seconds\]\]'"),
    "Tools/fuzz FileNames 1200": OnlyChecked(_TAKES_MINUTES, "ls Tests/Fuzz/FileNamesTarget.cpp"),
    "Tools/fuzz --keep FileNames": OnlyChecked(_TAKES_MINUTES, "Tools/fuzz --help | grep -e '^--keep '"),
    "Tools/mutate --list Sources/AmbrelRecoveryApp/Model/RecoveryViewModel.cpp": Runs(),
    "Tools/mutate --sample 60 --seed 2": Runs("Tools/mutate --sample 60 --seed 2 --list | grep '^60 mutants$'"),
    "Tools/mutate --resume model": Runs("Tools/mutate --resume --list model"),
    "Tools/mutate MUTANT": Runs(
        "name=$(Tools/mutate --list model | grep --only-matching -E '^[0-9a-f]{8} ' | tail -n 1) && "
        "Tools/mutate --list $name | grep '^1 mutants$'"),
    # The package
    "Tools/package build/packages": RunsIn("Tools/package-twice", "\nTools/package build/packages\n"),
    "sudo apt install ./build/packages/ambrel-recovery-stand-in_0.1.0_amd64.deb": OnlyChecked(
        _CHANGES_THE_SYSTEM, _INSTALL_CHECK),
    'Tools/package -DAMBREL_RECOVERY_ENGINE=/path/to/ambrel-recovery "-DAMBREL_PACKAGE_MAINTAINER=Name <name@address>" '
    "-DAMBREL_PICTURES_URL=https://address/pictures build/packages": OnlyChecked(
        _TAKES_MINUTES, "for name in RECOVERY_ENGINE PACKAGE_MAINTAINER PICTURES_URL; do "
                        'Tools/package --help | grep -e "-DAMBREL_$name="; done'),
    # The engine contract
    "Tools/check-engine path/to/ambrel-recovery path/to/Photos.ambrel --passphrase-file passphrase.txt "
    "--recovery-key-file recovery-key.txt --json results.json": RunsIn(
        "Tests/EngineCheck/check_engine_test.py", "--passphrase-file"),
    # Benchmarks
    "Tools/benchmark": _benchmark("Tools/benchmark --help | grep 'else all'"),
    "Tools/benchmark decode list": _benchmark("Tools/benchmark --help | grep 'decode, list'"),
    "Tools/benchmark --quick": RunsIn("test", "Tools/benchmark --quick\n"),
    "DISPLAY=:9 dbus-run-session -- python3 Benchmarks/opened_files.py build/release": _benchmark(
        "ls Benchmarks/opened_files.py"),
    # The misbehaving engine
    'AMBREL_TEST_MISBEHAVIOR="exit 3" misbehaving-engine inspect …': Runs(
        'AMBREL_TEST_MISBEHAVIOR="exit 3" misbehaving-engine inspect </dev/null || [ $? -eq 3 ]'),
    "AMBREL_TEST_MISBEHAVIOR_EXPORT=destination-exists AMBREL_TEST_MISBEHAVIOR=valid AmbrelRecoveryApp": Runs(
        "export AMBREL_TEST_MISBEHAVIOR_EXPORT=destination-exists AMBREL_TEST_MISBEHAVIOR=valid; "
        "misbehaving-engine inspect P --recovery-key --credential-stdin <<<secret | grep schemaIdentifier && "
        "(misbehaving-engine export P --snapshot S --destination D --recovery-key --credential-stdin <<<secret 2>&1 || "
        "[ $? -eq 7 ]) | grep 'destination already exists'"),
    "misbehaving-engine write-output 1000000": Runs(
        "misbehaving-engine write-output 1000000 </dev/null | wc --bytes | grep '^1000000$'"),
}
