"""One look at everything that an application shows."""

import collections

# One object that is shown, as it was at one look; `depth` counts from the application itself.
Shown = collections.namedtuple("Shown", "item role name states depth")


def look_at(bus, root):
    """`root` and all below it that is shown, as a list of Shown, each before what is in it.

    A level of the tree is asked for at once: one question after the other would take most of the time of a test. Raises
    Gone where something went away meanwhile.
    """
    facts, children = {}, {}
    level = [root]
    while level:
        told = bus.facts_of(level)
        shown = [item for item in level if item is root or {"showing", "visible"} <= told[item].states]
        facts.update((item, told[item]) for item in shown)
        below = bus.children_of({item: told[item].child_count for item in shown})
        children.update(below)
        level = [child for item in shown for child in below[item]]
    return list(_in_order(root, facts, children, 0))


def _in_order(item, facts, children, depth):
    yield Shown(item, facts[item].role, facts[item].name, facts[item].states, depth)
    for child in children[item]:
        if child in facts:
            yield from _in_order(child, facts, children, depth + 1)
