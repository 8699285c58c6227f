"""The roles of accessible objects."""

import enum


class Role(enum.Enum):
    """The roles that tests ask for, by their numbers in the protocol: the names differ between its versions."""

    ALERT = 2
    DIALOG = 16
    FRAME = 23
    LABEL = 29
    LIST = 31
    LIST_ITEM = 32
    PANEL = 39
    PASSWORD_TEXT = 40
    PROGRESS_BAR = 42
    PUSH_BUTTON = 43
    RADIO_BUTTON = 44
    TEXT = 61
    NOTIFICATION = 101

    @classmethod
    def _missing_(cls, value):
        other = object.__new__(cls)
        other._name_ = f"ROLE_{value}"
        other._value_ = value
        return other

    def __str__(self):
        return self.name.lower().replace("_", " ")
