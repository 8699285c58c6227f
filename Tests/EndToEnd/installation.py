"""A copy of the built application, and the surroundings that it runs in."""

import pathlib
import shutil

from catalogue import Catalogue


class Installation:
    """The built application's folder, copied to a place away from where it was built."""

    def __init__(self, built, place, language="en"):
        self.directory = pathlib.Path(place)
        shutil.copytree(built, self.directory)
        self.executable = self.directory / "AmbrelRecoveryApp"
        self.engine = self.directory / "Resources" / "bin" / "ambrel-recovery"
        self.catalogue = Catalogue(self.directory, language)


def environment_of(desktop, scratch, **changes):
    """The environment of an application with a home and a temporary directory of its own below `scratch`.

    What `changes` names has that value instead.
    """
    home = scratch / "home"
    temporary = scratch / "temporary"
    for directory in (home, temporary):
        directory.mkdir(exist_ok=True)
    own = dict(HOME=str(home), TMPDIR=str(temporary), XDG_CONFIG_HOME=str(home / ".config"),
               XDG_CACHE_HOME=str(home / ".cache"), XDG_DATA_HOME=str(home / ".local/share"))
    return desktop.environment | own | changes
