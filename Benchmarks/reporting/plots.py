"""How cost grows with work: one picture a subject, both axes logarithmic."""

import pathlib

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as pyplot  # noqa: E402
import matplotlib.ticker as ticker  # noqa: E402

from reporting.samples import Summary, with_unit  # noqa: E402

# The same texts give the same file.
matplotlib.rcParams["svg.hashsalt"] = "ambrel"
matplotlib.rcParams["svg.fonttype"] = "none"


def growth(path, title, work, work_units, cost, cost_units, lines):
    """Writes an SVG file. `lines` is {label: {amount of work: [costs]}}; quartiles are a band around each line."""
    figure, axes = pyplot.subplots(figsize=(8, 4.5), layout="constrained")
    for label, points in lines.items():
        amounts = sorted(points)
        summaries = [Summary.of(points[amount]) for amount in amounts]
        is_product = label == "product"
        line, = axes.plot(amounts, [summary.median for summary in summaries], marker="o", markersize=4, label=label,
                          linewidth=2.5 if is_product else 1.2, zorder=3 if is_product else 2)
        axes.fill_between(amounts, [summary.low for summary in summaries], [summary.high for summary in summaries],
                          color=line.get_color(), alpha=0.2, linewidth=0)
    axes.set_xscale("log")
    axes.set_yscale("log")
    axes.set(title=title, xlabel=work, ylabel=cost)
    for axis, units in ((axes.xaxis, work_units), (axes.yaxis, cost_units)):
        axis.set_major_formatter(ticker.FuncFormatter(lambda value, _, units=units: _label(value, units)))
        axis.set_minor_formatter(ticker.NullFormatter())
    axes.xaxis.set_major_locator(ticker.FixedLocator(sorted({amount for points in lines.values() for amount in points})))
    axes.grid(True, which="major", alpha=0.3)
    axes.legend(fontsize="small")
    pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
    figure.savefig(path, metadata={"Date": None})
    pyplot.close(figure)


def _label(value, units):
    if units is None:
        return f"{value:,.0f}"
    amount, name = with_unit(value, units).rsplit(" ", 1)
    return f"{amount.rstrip('0').rstrip('.') if '.' in amount else amount} {name}"
