#import "devkit/agent/KRVAgentService.h"

#import "devkit/agent/WireValues.h"

using devkit::dictionaryFrom;
using devkit::ItemReference;
using devkit::Kind;
using devkit::Record;
using devkit::Reply;
using devkit::RequestedGrant;
using devkit::RequestedLink;
using devkit::RequestedMail;
using devkit::stringFrom;
using devkit::textFrom;

/// The two replies that are bare dictionaries are empty on failure.
static NSDictionary *BareDictionary(const Reply &reply) {
  const auto *record = std::get_if<Record>(&reply.value);
  return record ? dictionaryFrom(*record) : [NSDictionary dictionary];
}

/// A flag is one byte, and any byte may arrive. Taken by reference and read as a byte, since the
/// sanitizer ends the program at a BOOL that is neither YES nor NO.
static bool Flag(const BOOL &byte) {
  return reinterpret_cast<const char &>(byte) != 0;
}

@implementation KRVAgentService

- (instancetype)initWithOperations:(std::unique_ptr<devkit::Operations>)operations {
  self = [super init];
  if (self) _operations = std::move(operations);
  return self;
}

- (void)dealloc {
  [_contactRecords release];
  [super dealloc];
}

#pragma mark - Links and mails

// clang-format off

- (NSDictionary *)getLinkForFile:(NSString *)pathOrId
                                :(BOOL)notifyOnDownload
                                :(BOOL)requireEmail
                                :(NSString *)maxDownloads
                                :(BOOL)isFileId {
  const ItemReference item = {textFrom(pathOrId), Flag(isFileId)};
  const RequestedLink link = {Flag(notifyOnDownload), Flag(requireEmail), textFrom(maxDownloads)};
  return dictionaryFrom(_operations->getLink(Kind::File, item, link));
}

- (NSDictionary *)getLinkForFolder:(NSString *)pathOrId
                                  :(BOOL)notifyOnDownload
                                  :(BOOL)requireEmail
                                  :(NSString *)maxDownloads
                                  :(BOOL)isFileId {
  const ItemReference item = {textFrom(pathOrId), Flag(isFileId)};
  const RequestedLink link = {Flag(notifyOnDownload), Flag(requireEmail), textFrom(maxDownloads)};
  return dictionaryFrom(_operations->getLink(Kind::Folder, item, link));
}

- (NSDictionary *)sendFile:(NSString *)pathOrId
                          :(BOOL)notifyOnDownload
                          :(BOOL)requireEmail
                          :(NSString *)maxDownloads
                          :(NSString *)recipients
                          :(NSString *)subject
                          :(NSString *)message
                          :(BOOL)isFileId
                          :(BOOL)copyMe {
  const ItemReference item = {textFrom(pathOrId), Flag(isFileId)};
  const RequestedLink link = {Flag(notifyOnDownload), Flag(requireEmail), textFrom(maxDownloads)};
  const RequestedMail mail = {textFrom(recipients), textFrom(subject), textFrom(message),
                              Flag(copyMe)};
  return dictionaryFrom(_operations->send(Kind::File, item, link, mail));
}

- (NSDictionary *)sendFolder:(NSString *)pathOrId
                            :(BOOL)notifyOnDownload
                            :(BOOL)requireEmail
                            :(NSString *)maxDownloads
                            :(NSString *)recipients
                            :(NSString *)subject
                            :(NSString *)message
                            :(BOOL)isFileId
                            :(BOOL)copyMe {
  const ItemReference item = {textFrom(pathOrId), Flag(isFileId)};
  const RequestedLink link = {Flag(notifyOnDownload), Flag(requireEmail), textFrom(maxDownloads)};
  const RequestedMail mail = {textFrom(recipients), textFrom(subject), textFrom(message),
                              Flag(copyMe)};
  return dictionaryFrom(_operations->send(Kind::Folder, item, link, mail));
}

#pragma mark - Access

- (NSDictionary *)grantAccess:(NSString *)userEmail
                             :(NSString *)pathOrId
                             :(BOOL)canDownload
                             :(BOOL)canUpload
                             :(BOOL)canDelete
                             :(BOOL)grantFlag
                             :(BOOL)isFileId
                             :(BOOL)isNewInvite
                             :(NSString *)message {
  const ItemReference item = {textFrom(pathOrId), Flag(isFileId)};
  const RequestedGrant grant = {textFrom(userEmail),
                                {Flag(canDownload), Flag(canUpload), Flag(canDelete)},
                                Flag(grantFlag),
                                Flag(isNewInvite),
                                textFrom(message)};
  return dictionaryFrom(_operations->grantAccess(item, grant));
}

- (NSDictionary *)revokeAccess:(NSString *)userEmail:(NSString *)pathOrId:(BOOL)isFileId {
  const ItemReference item = {textFrom(pathOrId), Flag(isFileId)};
  return dictionaryFrom(_operations->revokeAccess(textFrom(userEmail), item));
}

- (NSDictionary *)getAccess:(NSString *)pathOrId:(BOOL)isFileId {
  return dictionaryFrom(_operations->getAccess({textFrom(pathOrId), Flag(isFileId)}));
}

#pragma mark - People

- (NSDictionary *)getUserInfo:(NSString *)userEmail:(BOOL)userInfoFlag {
  return dictionaryFrom(_operations->getUserInfo(textFrom(userEmail), Flag(userInfoFlag)));
}

// clang-format on

- (NSDictionary *)getEmployeeAddressBook {
  const auto known = _addressBook.revision;
  const Reply reply = _operations->getEmployeeAddressBook(_addressBook);
  if (reply.error != 0) return dictionaryFrom(reply);
  if (!_contactRecords || _addressBook.revision != known) {
    NSMutableArray *records = [NSMutableArray arrayWithCapacity:_addressBook.contacts.size()];
    for (const auto &contact : _addressBook.contacts) {
      // One pool for each entry: the temporary objects of a large book would otherwise fill the
      // memory.
      @autoreleasepool {
        [records
            addObject:[NSDictionary dictionaryWithObjectsAndKeys:stringFrom(contact.displayName()),
                                                                 @"name", stringFrom(contact.email),
                                                                 @"primaryemail", nil]];
      }
    }
    [_contactRecords release];
    _contactRecords = [records copy];
    _addressBook.contacts = {};
  }
  return dictionaryFrom(reply, _contactRecords);
}

- (NSDictionary *)getAddressBook:(id)query {
  return dictionaryFrom(_operations->getAddressBook(textFrom(query)));
}

#pragma mark - The account

- (id)getActiveAccount {
  return BareDictionary(_operations->getActiveAccount());
}

- (NSDictionary *)getHomeDirectoryInfo {
  return BareDictionary(_operations->getHomeDirectoryInfo());
}

@end
