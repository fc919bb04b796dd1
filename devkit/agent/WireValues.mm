#import "devkit/agent/WireValues.h"

#include "devkit/base/Text.h"

namespace devkit {
namespace {

NSArray *arrayFrom(const std::vector<Record> &records) {
  NSMutableArray *array = [NSMutableArray arrayWithCapacity:records.size()];
  for (const auto &record : records) [array addObject:dictionaryFrom(record)];
  return array;
}

id objectFrom(const std::variant<std::string, bool> &value) {
  if (const auto *text = std::get_if<std::string>(&value)) return stringFrom(*text);
  return [NSNumber numberWithBool:std::get<bool>(value)];
}

id valueOf(const Reply &reply) {
  if (const auto *text = std::get_if<std::string>(&reply.value)) return stringFrom(*text);
  if (const auto *record = std::get_if<Record>(&reply.value)) return dictionaryFrom(*record);
  const auto *records = std::get_if<std::vector<Record>>(&reply.value);
  return records ? arrayFrom(*records) : nil;
}

}  // namespace

Text textFrom(id argument) {
  // Asked first: any other message to a proxy would go to the caller's process.
  if (!argument || [argument isProxy]) return std::nullopt;
  if (![argument isKindOfClass:[NSString class]]) return std::nullopt;
  // Not UTF8String, which gives up on half of a surrogate pair and stops at a NUL.
  NSData *bytes = [argument dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
  return std::string(static_cast<const char *>([bytes bytes]), [bytes length]);
}

NSString *stringFrom(const std::string &text) {
  const auto valid = validUtf8(text);
  return [[[NSString alloc] initWithBytes:valid.data()
                                   length:valid.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

NSDictionary *dictionaryFrom(const Record &record) {
  NSMutableDictionary *dictionary = [NSMutableDictionary dictionaryWithCapacity:record.size()];
  for (const auto &[key, value] : record)
    [dictionary setObject:objectFrom(value) forKey:stringFrom(std::string(key))];
  return dictionary;
}

NSDictionary *dictionaryFrom(const Reply &reply) {
  return dictionaryFrom(reply, valueOf(reply));
}

NSDictionary *dictionaryFrom(const Reply &reply, id value) {
  NSMutableDictionary *dictionary = [NSMutableDictionary dictionaryWithCapacity:3];
  [dictionary setObject:[NSNumber numberWithInt:reply.error] forKey:@"error"];
  [dictionary setObject:stringFrom(reply.errorMessage) forKey:@"errorMessage"];
  if (value) [dictionary setObject:value forKey:@"value"];
  return dictionary;
}

}  // namespace devkit
