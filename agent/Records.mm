#import "agent/Records.h"

#include <algorithm>

#import "agent/AgentRequest.h"
#import "agent/ResultDictionary.h"
#import "text/UTF16.h"

/// What this file sends to arrays and records of another process (see ResultDictionary.mm).
@protocol RemoteArray
- (NSUInteger)count;
- (id)objectAtIndex:(NSUInteger)index;
- (id)objectForKey:(id)key;
- (NSArray *)subarrayWithRange:(NSRange)range;
- (id)valueForKey:(NSString *)key;
- (NSString *)componentsJoinedByString:(NSString *)separator;
- (void)makeObjectsPerformSelector:(SEL)selector;
- (BOOL)isKindOfClass:(Class)cls;
@end

namespace agent {
namespace {

/// Records brought over at a time. Large enough that the messages cost nothing, small enough that
/// the joined text stays far below the 32 MiB that the platform takes as one message, and that the
/// memory for it is soon given back.
constexpr NSUInteger kRecordsAtATime = 10000;

/// Below this many records a part that cannot be read as a whole is read record by record.
constexpr NSUInteger kReadSinglyBelow = 8;

/// The control character "unit separator": no name or address holds it. If one does after all, the
/// number of pieces tells, and the part is read in smaller parts.
constexpr unichar kSeparator = 0x1F;

id withProtocol(id object) {
  if ([object isProxy]) {
    [static_cast<NSDistantObject *>(object) setProtocolForProxy:@protocol(RemoteArray)];
  }
  return object;
}

/// The elements' text forms, brought over as one.
NSArray *joinedAndSplit(id array) {
  static NSString *const separator = [[NSString alloc] initWithCharacters:&kSeparator length:1];
  return utf16::splitString(stringOrNil([withProtocol(array) componentsJoinedByString:separator]),
                            kSeparator);
}

/// Whether every element is a string. One message: each element is sent one that strings answer and
/// that changes nothing, and the first that is no string (the null object that stands for a missing
/// value, a number) makes the agent raise.
bool areAllStrings(id array) {
  @try {
    [withProtocol(array) makeObjectsPerformSelector:@selector(isAbsolutePath)];
    return true;
  } @catch (NSException *) {
    // Also when the connection broke; the next message finds out.
    return false;
  }
}

/// value when it is a string or a number of this process, otherwise nil.
id readable(id value) {
  const bool isNumber = ![value isProxy] && [value isKindOfClass:[NSNumber class]];
  return isNumber ? value : stringOrNil(value);
}

/// One field of one record, asked for by itself.
id valueIn(id record, NSString *key) {
  if (![withProtocol(record) isKindOfClass:[NSDictionary class]]) return nil;
  return readable([record objectForKey:key]);
}

/// The number that a text form tells, nil when it does not tell whether that is zero ("nan").
NSNumber *numberOf(NSString *text) {
  const double value = [text doubleValue];
  const bool isTold = value != 0 || [text isEqualToString:@"0"];
  return isTold ? [NSNumber numberWithDouble:value] : nil;
}

bool isOneOf(NSString *name, NSString *first, NSString *second) {
  return [name isEqualToString:first] || [name isEqualToString:second];
}

/// The values of one key over several records, as text. Text alone does not tell strings from other
/// values, because a number and the null object have a text form too; so where not all values are
/// strings, the class of each is brought over as well.
class Column {
 public:
  Column(id records, NSString *key) : records_(records), key_(key) {}

  /// Raises when a record has no values for keys, or when the connection breaks. (Not done by the
  /// constructor: a container that makes an element cannot pass a platform exception on.)
  void fetch() {
    id const values = withProtocol([records_ valueForKey:key_]);
    texts_ = joinedAndSplit(values);
    if (!areAllStrings(values)) classes_ = joinedAndSplit([values valueForKey:@"classForCoder"]);
  }

  bool isComplete(NSUInteger count) const {
    return [texts_ count] == count && (classes_ == nil || [classes_ count] == count);
  }

  /// The value of record `index` as a visitor gets it.
  id valueAt(NSUInteger index) const {
    NSString *const text = [texts_ objectAtIndex:index];
    if (classes_ == nil) return text;
    NSString *const name = nameOfClassAt(index, text);
    if (isOneOf(name, @"NSString", @"NSMutableString")) return text;
    if (isOneOf(name, @"<null>", @"NSNull")) return nil;
    NSNumber *const number = [name isEqualToString:@"NSNumber"] ? numberOf(text) : nil;
    // Rare enough to ask: a string or a number of a class that only the agent knows.
    return number ?: valueIn([records_ objectAtIndex:index], key_);
  }

 private:
  /// nil where what was brought over need not be the class: a dictionary answers the question for
  /// it with what stands in it under that key.
  NSString *nameOfClassAt(NSUInteger index, NSString *text) const {
    return [text hasPrefix:@"{"] ? nil : [classes_ objectAtIndex:index];
  }

  id records_;
  NSString *key_;
  NSArray *texts_ = nil;
  NSArray *classes_ = nil;
};

/// One reading of an array: what is asked of each record, and who gets it.
class RecordReader {
 public:
  RecordReader(const std::vector<NSString *> &keys, const RecordVisitor &visit)
      : keys_(keys), visit_(visit), values_(keys.size()) {}

  /// Visits the records in `range`. A part that cannot be read as a whole is halved, so that one
  /// odd record costs a few messages and not a message for every other record.
  void visitRange(id records, NSRange range) {
    @autoreleasepool {
      id const part = withProtocol([records subarrayWithRange:range]);
      if (range.length < kReadSinglyBelow) {
        visitSingly(part);
        return;
      }
      if (visitAsColumns(part, range.length)) return;
    }
    const NSUInteger half = range.length / 2;
    visitRange(records, NSMakeRange(range.location, half));
    visitRange(records, NSMakeRange(range.location + half, range.length - half));
  }

 private:
  void visitSingly(id records) {
    const NSUInteger count = [records count];
    for (NSUInteger i = 0; i < count; ++i) {
      id const record = [records objectAtIndex:i];
      visitWith([&](size_t key) { return valueIn(record, keys_[key]); });
    }
  }

  /// Brings all columns over; answers false, before any visit, when they cannot be told apart into
  /// records.
  bool visitAsColumns(id records, NSUInteger count) {
    std::vector<Column> columns;
    for (NSString *const key : keys_) columns.emplace_back(records, key);
    @try {
      for (Column &column : columns) column.fetch();
    } @catch (NSException *) {
      // A record that is no dictionary has no values for keys. A connection that broke raises too;
      // the smaller parts will find it broken again.
      return false;
    }
    for (const Column &column : columns) {
      if (!column.isComplete(count)) return false;
    }
    for (NSUInteger i = 0; i < count; ++i) {
      visitWith([&](size_t key) { return columns[key].valueAt(i); });
    }
    return true;
  }

  template <class Value>
  void visitWith(Value valueOfKey) {
    for (size_t key = 0; key < keys_.size(); ++key) values_[key] = valueOfKey(key);
    visit_(values_);
  }

  const std::vector<NSString *> &keys_;
  const RecordVisitor &visit_;
  std::vector<id> values_;
};

}  // namespace

bool visitRecords(id records, const std::vector<NSString *> &keys, const RecordVisitor &visit) {
  RecordReader reader(keys, visit);
  return nilOnException([&]() -> id {
           const UnboundedReply noTimeout([records isProxy] ? records : nil);
           if (![withProtocol(records) isKindOfClass:[NSArray class]]) return @"no array";
           const NSUInteger count = [records count];
           for (NSUInteger start = 0; start < count; start += kRecordsAtATime) {
             const NSUInteger length = std::min(kRecordsAtATime, count - start);
             reader.visitRange(records, NSMakeRange(start, length));
           }
           return @"all visited";
         }) != nil;
}

bool visitContactRecords(id records, const ContactVisitor &visit) {
  static const std::vector<NSString *> keys = {@"name", @"primaryemail"};
  return visitRecords(records, keys, [&](const std::vector<id> &values) {
    visit(stringOrNil(values[0]), stringOrNil(values[1]));
  });
}

bool visitAccessEntries(id entries, const AccessVisitor &visit) {
  static const std::vector<NSString *> keys = {@"type",      @"candownload", @"canupload",
                                               @"candelete", @"isowner",     @"userfname",
                                               @"userlname", @"useremail"};
  return visitRecords(entries, keys, [&](const std::vector<id> &values) {
    visit({.type = stringOrNil(values[0]),
           .canDownload = flagOf(values[1]),
           .canUpload = flagOf(values[2]),
           .canDelete = flagOf(values[3]),
           .isOwner = flagOf(values[4]),
           .firstName = stringOrNil(values[5]),
           .lastName = stringOrNil(values[6]),
           .address = stringOrNil(values[7])});
  });
}

}  // namespace agent
