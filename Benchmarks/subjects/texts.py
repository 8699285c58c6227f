"""Looking up texts, loading their table, and formatting the values of a row."""

from reporting.samples import number, ratio, table, time_cell

TITLE = "Texts, tables and formats"
# For each table its first line, the product's, and what one would pick instead.
_TABLES = (
    ("lookup of a text", ("the product's: two `stat` calls and a table", "lookupAmbrel"),
     (("fresh `QSettings` and a hash", "lookupFreshSettingsAndHash"),
      ("two `stat` calls and nothing else", "lookupTwoStatCallsAlone"), ("`QTranslator`", "lookupQTranslator"),
      ("gettext", "lookupGettext"), ("ICU resource bundle", "lookupIcuResourceBundle"))),
    ("loading the English table", ("the product's, all texts decoded and checked", "loadAmbrel"),
     (("`QJsonDocument` into a hash", "loadQJsonDocument"),
      ("`QTranslator`, which maps its file and decodes nothing yet", "loadQTranslator"))),
    ("the values of a row (two numbers, a size, a date) in German", ("cached formatters", "rowAmbrel"),
     (("new formatters for the same pattern", "rowNewFormattersOfThisStyle"),
      ("new formatters for a predefined date style, which looks different", "rowNewFormattersOfFixedStyle"),
      ("`QLocale`, which has neither this pattern nor these units", "rowQLocale"))),
)


def measure(laboratory):
    return laboratory.google_benchmark("AmbrelLocalizationBenchmarks", repetitions=laboratory.repetitions(9),
                                       names="^(lookup|load|row)")


def reaches(data):
    value = ratio(data["rowAmbrel"]["time"], data["rowNewFormattersOfThisStyle"]["time"])
    yield "a row, to new formatters", "at most 0.05", number(value), value <= 0.05


def plots(data):
    yield from ()


def section(data):
    for title, (label, own), others in _TABLES:
        rows = [[label, time_cell(data[own]["time"]), ""]]
        rows += [[other, time_cell(data[name]["time"]), number(ratio(data[own]["time"], data[name]["time"]))]
                 for other, name in others]
        yield from table([title, "time", "product to it"], rows)
        yield ""
    yield ("The product's lookup notices at once if another process has changed the language. Of the others, only the "
           "first does.")
