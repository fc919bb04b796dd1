#pragma once

/// Has the platform draw everything in the scale of the desktop, unless the user's default
/// "GSScaleFactor" has another one. Before the platform makes its first font or window. Main
/// thread.
void adoptScreenScale();
