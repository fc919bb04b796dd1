#import <Foundation/Foundation.h>

/// The agent's vended interface: what its root object on the connection "KRVSyncAgent" answers.
///
/// The agent is another process and holds the user's account. Every call blocks the calling thread
/// until the agent has answered. Arguments are given by position; their names here are the ones
/// that the service uses:
///
/// - pathOrId: the item, either its full local path inside the synced folder or its server id;
///   isFileId says which (YES: a server id).
/// - notifyOnDownload: tell the sender when the shared item is downloaded.
/// - requireEmail: recipients must give their e-mail address before they may download.
/// - maxDownloads: the allowed number of downloads as decimal text, "-1" for unlimited.
/// - recipients: e-mail addresses separated by commas, as the user entered them.
/// - subject, message: percent-escaped UTF-8, except where a caller says otherwise.
/// - copyMe: also send the mail to the sender.
///
/// A reply is a dictionary with the keys of ResultDictionary.h, an empty one when the agent cannot
/// reach the service. Dictionaries and arrays arrive as proxies: each message to one is a round
/// trip, and each may raise when the agent ends. Read them through ResultDictionary.h and Records.h
/// only.
// clang-format off
@protocol KRVOperations <NSObject>

/// Makes a link to a file; "value" is the link, a string.
- (NSDictionary *)getLinkForFile:(NSString *)pathOrId
                                :(BOOL)notifyOnDownload
                                :(BOOL)requireEmail
                                :(NSString *)maxDownloads
                                :(BOOL)isFileId;

/// As getLinkForFile:::::, for a folder.
- (NSDictionary *)getLinkForFolder:(NSString *)pathOrId
                                  :(BOOL)notifyOnDownload
                                  :(BOOL)requireEmail
                                  :(NSString *)maxDownloads
                                  :(BOOL)isFileId;

/// Mails a link to a file to the recipients.
- (NSDictionary *)sendFile:(NSString *)pathOrId
                          :(BOOL)notifyOnDownload
                          :(BOOL)requireEmail
                          :(NSString *)maxDownloads
                          :(NSString *)recipients
                          :(NSString *)subject
                          :(NSString *)message
                          :(BOOL)isFileId
                          :(BOOL)copyMe;

/// As sendFile:::::::::, for a folder.
- (NSDictionary *)sendFolder:(NSString *)pathOrId
                            :(BOOL)notifyOnDownload
                            :(BOOL)requireEmail
                            :(NSString *)maxDownloads
                            :(NSString *)recipients
                            :(NSString *)subject
                            :(NSString *)message
                            :(BOOL)isFileId
                            :(BOOL)copyMe;

/// Grants userEmail access to a folder, or changes the access that it has. grantFlag is a fourth
/// flag whose meaning only the agent knows; isNewInvite is YES when new people are invited.
- (NSDictionary *)grantAccess:(NSString *)userEmail
                             :(NSString *)pathOrId
                             :(BOOL)canDownload
                             :(BOOL)canUpload
                             :(BOOL)canDelete
                             :(BOOL)grantFlag
                             :(BOOL)isFileId
                             :(BOOL)isNewInvite
                             :(NSString *)message;

/// Takes userEmail's access to a folder away.
- (NSDictionary *)revokeAccess:(NSString *)userEmail:(NSString *)pathOrId:(BOOL)isFileId;

/// Who has access to a folder; "value" is an array of access entries (dictionaries).
- (NSDictionary *)getAccess:(NSString *)pathOrId:(BOOL)isFileId;

/// What the service knows of an address; "value" is a user record (dictionary).
- (NSDictionary *)getUserInfo:(NSString *)userEmail:(BOOL)userInfoFlag;

/// The colleagues; "value" is an array of contact records with the keys "name" and "primaryemail".
- (NSDictionary *)getEmployeeAddressBook;

/// Not used by this application.
- (NSDictionary *)getAddressBook:(id)query;

/// Not used by this application. The reply is of any kind.
- (id)getActiveAccount;

@end
// clang-format on

/// The root object itself: the operations that BVDataModelController forwards, and the one that is
/// only ever sent straight to the proxy.
@protocol KRVProxy <KRVOperations>

/// The home folder information; its key "homefolder" holds the server id of the user's home folder
/// (the local folder "MyDocs"). Not a result dictionary.
- (NSDictionary *)getHomeDirectoryInfo;

@end
