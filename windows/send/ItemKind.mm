#import "windows/send/ItemKind.h"

const ItemTexts &textsFor(ItemKind kind) {
  static const ItemTexts file = {
      @"sendFileLabelTextKey", @"defaultSubjectForSendFileKey", @"fileSentSuccessMessageTextKey",
      @"unableToSendFileMessageTextKey", @"fileNotAvailableInformativeTextKey"};
  static const ItemTexts folder = {@"sendFolderLabelTextKey", @"defaultSubjectForSendFolderKey",
                                   @"folderSentSuccessMessageTextKey",
                                   @"unableToSendFolderMessageTextKey",
                                   @"folderNotAvailableInformativeTextKey"};
  return kind == ItemKind::Folder ? folder : file;
}

BOOL isFolderOnDisk(NSString *path) {
  BOOL isDirectory = NO;
  if (path == nil || ![[NSFileManager defaultManager] fileExistsAtPath:path
                                                           isDirectory:&isDirectory]) {
    return NO;
  }
  if (isDirectory) NSLog(@"is folder");
  return isDirectory;
}
