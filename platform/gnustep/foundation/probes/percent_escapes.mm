#import <CoreFoundation/CoreFoundation.h>

int main() {
  return CFURLCreateStringByAddingPercentEscapes(nullptr, nullptr, nullptr, nullptr, 0) != nullptr;
}
