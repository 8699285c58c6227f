"""The texts that the application shows, from the tables that it was built with."""

import json
import pathlib


class Catalogue:
    """The texts of a built application in one language."""

    def __init__(self, application_directory, language="en"):
        table = (pathlib.Path(application_directory) / "Resources" / "AmbrelCore_AmbrelLocalization.bundle"
                 / f"{language}.lproj" / "Localizable.json")
        self._texts = json.loads(table.read_text(encoding="utf-8"))

    def __getitem__(self, key):
        return self._texts["ambrel." + key]

    def failure(self, kind):
        """(title, body) of a failure, by the name it has in the catalogue."""
        group = "files-export." if kind == "destination-unavailable" else "recovery.failure."
        return self[f"{group}{kind}.title"], self[f"{group}{kind}.body"]


# The texts that the application brings itself.
OKAY = "OK"
NO_ACCOUNT = "No account"
READ_ONLY = "Read-only"
SHOW_IN_FINDER = "Show in Finder"
STEP_COMPLETED = "Completed"
NO_SNAPSHOTS = "This backup holds no snapshots, so there is nothing to export. Choose another package."
