#pragma once

#import <Foundation/Foundation.h>

/// What an item is taken for.
enum class ItemKind { File, Folder };

/// The keys of the texts that differ between a file and a folder.
struct ItemTexts {
  NSString *tabLabel;
  NSString *defaultSubject;
  NSString *sent;
  NSString *unableToSend;
  NSString *notAvailable;
};
const ItemTexts &textsFor(ItemKind kind);

/// Whether there is a folder at `path`; logs when there is. NO for a file, for nothing, and for
/// nil. Asks the disk. Any thread.
BOOL isFolderOnDisk(NSString *path);
