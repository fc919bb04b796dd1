#import <AppKit/AppKit.h>

// An icon file whose only picture has 64 pixels.
int main() {
  @autoreleasepool {
    NSBitmapImageRep *const picture =
        [[[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                                 pixelsWide:64
                                                 pixelsHigh:64
                                              bitsPerSample:8
                                            samplesPerPixel:4
                                                   hasAlpha:YES
                                                   isPlanar:NO
                                             colorSpaceName:NSCalibratedRGBColorSpace
                                                bytesPerRow:0
                                               bitsPerPixel:0] autorelease];
    NSData *const content = [picture representationUsingType:NSPNGFileType properties:nil];
    const uint32_t length = NSSwapHostIntToBig(static_cast<unsigned>([content length]) + 8);
    const uint32_t total = NSSwapHostIntToBig(static_cast<unsigned>([content length]) + 16);
    NSMutableData *const file = [NSMutableData dataWithBytes:"icns" length:4];
    [file appendBytes:&total length:4];
    [file appendBytes:"icp6" length:4];
    [file appendBytes:&length length:4];
    [file appendData:content];
    return [[NSBitmapImageRep imageRepsWithData:file] count] == 1 ? 0 : 1;
  }
}
