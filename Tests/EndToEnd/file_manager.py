"""The desktop's file manager, as far as the application speaks to it: it remembers what it was asked to show."""

from bus_service import BusService

_INTERFACE = """
<interface name="org.freedesktop.FileManager1">
  <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
  <method name="ShowFolders"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
</interface>
"""


class FileManager(BusService):
    """Owns org.freedesktop.FileManager1 on a session bus until it is closed."""

    def __init__(self, bus_address):
        super().__init__(bus_address, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", _INTERFACE)

    def wait_for_call(self, method=None):
        """The first call since `calls` was cleared, as (method, locations)."""
        method, arguments = super().wait_for_call(method)
        return method, arguments[0]
