#pragma once

/// Reads images by the platform's own readers only (PNG, TIFF, JPEG, GIF, icon families). Otherwise
/// the first image makes ImageMagick load more than a hundred libraries to list its types, which
/// takes 60 ms and 10 MB at each launch. To be called before the first image is loaded. Main
/// thread.
void useOwnImageReadersOnly();
