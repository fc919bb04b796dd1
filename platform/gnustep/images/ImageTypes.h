#pragma once

/// Leaves the reading of images to the platform's own readers (PNG, TIFF, JPEG, GIF, icon
/// families). The first look at any image also asks ImageMagick for the types that it knows, and
/// for that it loads more than a hundred libraries: 60 ms and 10 MB at each start, for pictures
/// that nobody here has. To be called before the first image is asked for. Main thread.
void useOwnImageReadersOnly();
