#pragma once

#import <Foundation/Foundation.h>

#import "plugin/ContextMenuService.h"

/// The object that the running application vends, as a plug-in gets it, with the protocol of the
/// plug-in set on it or not; nil when it cannot be reached. Autoreleased. Needs no AppKit.
id<ContextMenuService> vendedService(bool withProtocol = true);
