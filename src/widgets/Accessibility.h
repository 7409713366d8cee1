#pragma once

namespace turnpost {

/// Tells screen readers what Qt would tell wrongly: that the main window is a window and no dialog,
/// and how full a FilledBar is. Call once, before the first window.
void installAccessibility();

} // namespace turnpost
