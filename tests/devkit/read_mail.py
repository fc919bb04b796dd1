"""Reads a mail as any mail program would and prints what it found, for tests to compare.

    read_mail.py FILE

Prints each header of interest as one line of JSON and the body as the last one.
"""

import email
import email.policy
import json
import sys

with open(sys.argv[1], "rb") as file:
    mail = email.message_from_binary_file(file, policy=email.policy.default)
if mail.defects:
    sys.exit(f"defects: {mail.defects}")
for name in mail.keys():
    if mail[name].defects:
        sys.exit(f"{name}: {mail[name].defects}")
print(" ".join(mail.keys()))
for name in ("From", "To", "Cc", "Subject"):
    print(f"{name}:", json.dumps(mail[name] and str(mail[name]), ensure_ascii=False))
print("Body:", json.dumps(mail.get_content(), ensure_ascii=False))
