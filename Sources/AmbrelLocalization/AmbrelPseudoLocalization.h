#pragma once

#include "AmbrelLocalization/LocalizedStringResource.h"

#include <QString>

/// A visibly altered but readable form of a finished text, for finding texts that bypass the catalogue, layouts that
/// clip longer languages and fonts that lack accented letters. May be used on any thread.
namespace AmbrelPseudoLocalization {

/// Returns `text`, which was resolved from `resource`, with accented letters, a mark after every second letter, and
/// brackets around it: "Open" becomes "⟦Öþːëñː⟧". The product's name and an empty text are returned unchanged.
/// Placeholders are altered like any other text, so a format must be filled in first.
QString expanded(const QString& text, const LocalizedStringResource& resource);

} // namespace AmbrelPseudoLocalization
