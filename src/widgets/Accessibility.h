#pragma once

namespace turnpost {

/// Tells screen readers what the toolkit would tell wrongly: that the main window is a window and
/// no dialog, and how far a FilledBar is. Once, before the first window.
void installAccessibility();

} // namespace turnpost
