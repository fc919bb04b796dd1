#import "tests/e2e/CopyLinkTabOnScreen.h"

bool CopyLinkTab::openTab(const SendCall &call) {
  if (!open(call)) return false;
  window = onlyWindow(call.name);
  return !window.number.empty();
}

void CopyLinkTab::chooseDownloads(int index) const {
  choose(kDownloads, 0, index);
}
