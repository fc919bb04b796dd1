#pragma once

#import <AppKit/AppKit.h>

/// One of the pictures of an icon file, decoded when it is first drawn: all of them together take
/// megabytes and as long as a frame, and usually one is needed, if any. Also answers what a bitmap
/// does, which decodes it. Main thread only.
@interface IconPicture : NSImageRep {
 @private
  NSData *_file;
  NSBitmapImageRep *_bitmap;
}

/// A PNG file with 8 bits for each of red, green, blue and alpha, a pixel to the point. nil if it
/// is no such file. What is wrong behind its head is found when it is drawn, and nothing is drawn
/// then.
+ (IconPicture *)pictureWithFile:(NSData *)file;

/// NO until it has been needed.
- (BOOL)isDecoded;

@end
