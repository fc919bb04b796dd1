#pragma once

#import <Foundation/Foundation.h>

/// Positions of the arguments of the agent's operations in a recorded call.

namespace link_operation {
enum : NSUInteger { kPathOrId, kNotifyOnDownload, kRequireEmail, kMaxDownloads, kIsFileId };
}

namespace send_operation {
enum : NSUInteger {
  kPathOrId,
  kNotifyOnDownload,
  kRequireEmail,
  kMaxDownloads,
  kRecipients,
  kSubject,
  kMessage,
  kIsFileId,
  kCopyMe
};
}

namespace grant_operation {
enum : NSUInteger {
  kUserEmail,
  kPathOrId,
  kCanDownload,
  kCanUpload,
  kCanDelete,
  kGrantFlag,
  kIsFileId,
  kIsNewInvite,
  kMessage
};
}

namespace revoke_operation {
enum : NSUInteger { kUserEmail, kPathOrId, kIsFileId };
}

namespace access_operation {
enum : NSUInteger { kPathOrId, kIsFileId };
}
