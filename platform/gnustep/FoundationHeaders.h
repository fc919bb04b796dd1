/// Foundation without the descriptions of its protocols. GNUstep's runtime gets the description of
/// every protocol that a source's headers define from each object file again: nine tenths of the
/// application's data, all of it relocated and registered at launch. Nothing asks one of our
/// classes for a protocol of the platform, and "@protocol(NSCopying)" is an error of the compiler
/// then, not a protocol that no class of ours conforms to. Ours are described as always.
#ifdef __OBJC__
#pragma clang diagnostic push
// Where the headers have been included already, nothing is left to be marked.
#pragma clang diagnostic ignored "-Wpragma-clang-attribute"
#pragma clang attribute push(__attribute__((objc_non_runtime_protocol)), apply_to = objc_protocol)
#import <Foundation/Foundation.h>
#pragma clang attribute pop
#pragma clang diagnostic pop
#endif
