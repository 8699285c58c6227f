"""Compares pictures of the application with earlier ones, and tolerates what other fonts make of the same screen.

Usage: picture_comparison.py EARLIER NEW DIFFERENCES [--other-fonts]

Prints a line for each picture of the folders EARLIER and NEW, and exits with status 1 if one differs or is missing on
either side. What differs is shown in the folder DIFFERENCES, bright on black. --other-fonts: the pictures were taken with
other versions of the fonts, so that letters may have other shapes.

Two pictures differ if an area of 3 by 3 pixels in one of them has a color, in any channel by more than 4 of 255, that the
other one has nowhere within 3 pixels of that place. With the same fonts they also differ if the brightness, averaged over
a few pixels, is another one by more than 20. The largest values that were measured, in nine pictures of each kind:

                                                        colors   brightness
    the same machine, another time                           0            0
    smoothed for the stripes of a liquid crystal             3           13
    Debian 13: Inter 4.1 instead of 4.0, Qt 6.8              0          120  (not compared)
    one letter more in a text                            13-201        46-143
    one letter replaced by one as wide                       0        35-94
    the accent color brighter by 6                           6            5
    a symbol missing                                        67           55
    a button moved by 1 or 2 pixels                          0        51-75
    Noto Sans instead of Inter                         111-217       146-175

So a letter that is replaced by one as wide, and whatever moves by 3 pixels or less, is only found with the same fonts.
"""

import pathlib
import shutil
import subprocess
import sys

_PLACE = 3
_MOST_COLOR = 4
_MOST_BRIGHTNESS = 20

_READ = ["(", "{first}", "-write", "mpr:first", ")", "(", "{second}", "-write", "mpr:second", ")", "-delete", "0-1"]


def _outside(one, other):
    """By how much the one picture is brighter than everything around the same place of the other, or darker."""
    return ["(", f"mpr:{one}", "(", f"mpr:{other}", "-morphology", "Dilate", f"Square:{_PLACE}", ")",
            "-compose", "MinusSrc", "-composite", ")",
            "(", "(", f"mpr:{other}", "-morphology", "Erode", f"Square:{_PLACE}", ")", f"mpr:{one}",
            "-compose", "MinusSrc", "-composite", ")"]


_COLORS = [*_outside("first", "second"), *_outside("second", "first"), "-evaluate-sequence", "Max",
           "-morphology", "Erode", "Square:1"]
_BRIGHTNESS = ["mpr:first", "mpr:second", "-colorspace", "Gray", "-compose", "Difference", "-composite", "-blur", "0x2"]


def _largest(first, second, measure, picture):
    """The largest value of a measure, of 255. Writes what it is the largest of into a picture."""
    reading = [part.format(first=first, second=second) for part in _READ]
    shown = subprocess.run(["convert", *reading, *measure, "-format", "%[fx:maxima*255]", "-write", "info:",
                            "-auto-level", picture], check=True, capture_output=True, text=True, stdin=subprocess.DEVNULL)
    return float(shown.stdout)


def _size(picture):
    return subprocess.run(["identify", "-format", "%wx%h", picture], check=True, capture_output=True, text=True).stdout


def _is_identical(first, second):
    return subprocess.run(["compare", "-metric", "AE", first, second, "null:"], capture_output=True, check=False,
                          stdin=subprocess.DEVNULL).returncode == 0


def difference(earlier, new, picture, has_same_fonts):
    """What is different between two pictures, in words, or None. The picture is written where it is asked for."""
    if _size(earlier) != _size(new):
        return f"has the size {_size(new)} instead of {_size(earlier)}"
    if _is_identical(earlier, new):
        return None
    measures = [("colors", _COLORS, _MOST_COLOR)]
    if has_same_fonts:
        measures.append(("brightness", _BRIGHTNESS, _MOST_BRIGHTNESS))
    for name, measure, most in measures:
        largest = _largest(earlier, new, measure, picture)
        if largest > most:
            return f"differs: {name} by {largest:.0f}, {most} are tolerated; see {picture}"
    pathlib.Path(picture).unlink()
    return None


def compare(earlier, new, differences, has_same_fonts):
    """Prints the outcome of each picture. Gives whether none differs."""
    shutil.rmtree(differences, ignore_errors=True)
    differences.mkdir(parents=True)
    names = sorted({path.name for folder in (earlier, new) for path in folder.glob("*.png")})
    if not names:
        raise FileNotFoundError(f"neither {earlier} nor {new} has a picture")
    outcomes = {}
    for name in names:
        missing = next((folder for folder in (earlier, new) if not (folder / name).is_file()), None)
        outcomes[name] = (f"is missing in {missing}" if missing
                          else difference(earlier / name, new / name, differences / name, has_same_fonts))
        print(f"{name} {outcomes[name] or 'as before'}")
    return not any(outcomes.values())


def main(arguments):
    options = {argument for argument in arguments if argument.startswith("--")}
    folders = [pathlib.Path(argument) for argument in arguments if argument not in options]
    if len(folders) != 3 or options - {"--other-fonts"}:
        print(__doc__, file=sys.stderr)
        return 2
    return 0 if compare(*folders, has_same_fonts=not options) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
