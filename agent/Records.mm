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

/// Records fetched at a time. Large enough that the messages do not count, small enough that the
/// joined text stays far below the 32 MiB that GNUstep accepts as one message.
constexpr NSUInteger kRecordsAtATime = 10000;

/// Below this many records a range that cannot be fetched as a whole is read record by record.
constexpr NSUInteger kReadSinglyBelow = 8;

/// The control character "unit separator": no name or address contains it. If one does after all,
/// the number of parts is wrong, and the records are fetched in smaller ranges.
constexpr unichar kSeparator = 0x1F;

id withProtocol(id object) {
  setProtocol(object, @protocol(RemoteArray));
  return object;
}

/// The elements' text forms, fetched as one string.
NSArray *joinedAndSplit(id array) {
  static NSString *const separator = [[NSString alloc] initWithCharacters:&kSeparator length:1];
  return utf16::splitString(stringOrNil([withProtocol(array) componentsJoinedByString:separator]),
                            kSeparator);
}

/// Whether every element is a string. One message: the agent sends each element isAbsolutePath,
/// which only strings answer, and raises at the first that is none (a number, or the null object
/// that stands for a missing value).
bool areAllStrings(id array) {
  @try {
    [withProtocol(array) makeObjectsPerformSelector:@selector(isAbsolutePath)];
    return true;
  } @catch (NSException *) {
    // Raised for a broken connection too; the next message raises again then.
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

/// The number that a text form stands for, nil when that may or may not be zero ("nan").
NSNumber *numberOf(NSString *text) {
  const double value = [text doubleValue];
  const bool isCertain = value != 0 || [text isEqualToString:@"0"];
  return isCertain ? [NSNumber numberWithDouble:value] : nil;
}

bool isOneOf(NSString *name, NSString *first, NSString *second) {
  return [name isEqualToString:first] || [name isEqualToString:second];
}

/// The values of one key over several records, as text. Numbers and the null object have a text
/// form too, so where not all values are strings, the class of each is fetched as well.
class Column {
 public:
  Column(id records, NSString *key) : records_(records), key_(key) {}

  /// Raises when a record has no values for keys, or when the connection breaks. (Not part of the
  /// constructor, because a platform exception must not pass through a container of C++.)
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
  /// nil where the answer need not be the class: a dictionary answers valueForKey: with its own
  /// value under that key.
  NSString *nameOfClassAt(NSUInteger index, NSString *text) const {
    return [text hasPrefix:@"{"] ? nil : [classes_ objectAtIndex:index];
  }

  id records_;
  NSString *key_;
  NSArray *texts_ = nil;
  NSArray *classes_ = nil;
};

/// Reads the records of one array: knows the keys and the visitor.
class RecordReader {
 public:
  RecordReader(const std::vector<NSString *> &keys, const RecordVisitor &visit)
      : keys_(keys), visit_(visit), values_(keys.size()) {}

  /// Visits the records in `range`. A range that cannot be fetched as a whole is halved, so that
  /// one odd record costs a few messages and not one for every other record.
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

  /// Fetches all columns; returns false, before any visit, when these cannot be split into records.
  bool visitAsColumns(id records, NSUInteger count) {
    columns_.clear();
    for (NSString *const key : keys_) columns_.emplace_back(records, key);
    @try {
      for (Column &column : columns_) column.fetch();
    } @catch (NSException *) {
      // Raised by a record that is no dictionary. A broken connection raises too, and again for the
      // smaller ranges.
      return false;
    }
    for (const Column &column : columns_) {
      if (!column.isComplete(count)) return false;
    }
    for (NSUInteger i = 0; i < count; ++i) {
      visitWith([&](size_t key) { return columns_[key].valueAt(i); });
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
  // Not a local of visitAsColumns, which an exception may end without its destructors.
  std::vector<Column> columns_;
};

}  // namespace

bool visitRecords(id records, const std::vector<NSString *> &keys, const RecordVisitor &visit) {
  RecordReader reader(keys, visit);
  return nilOnException([&]() -> id {
           return withoutTimeout([records isProxy] ? records : nil, [&]() -> id {
             if (![withProtocol(records) isKindOfClass:[NSArray class]]) return @"no array";
             const NSUInteger count = [records count];
             for (NSUInteger start = 0; start < count; start += kRecordsAtATime) {
               const NSUInteger length = std::min(kRecordsAtATime, count - start);
               reader.visitRange(records, NSMakeRange(start, length));
             }
             return @"all visited";
           });
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
