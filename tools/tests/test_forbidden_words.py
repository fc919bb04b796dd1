"""Forbidden words are found. They are concatenated here, so that this file does not contain
them."""

from sample import SampleProject

import forbidden_words


class ForbiddenWords(SampleProject):
    def test_references_to_the_papers_are_found(self):
        for text in ("see P" "art 1.1", "as the sp" "ecification says", "per sp" "ec, nil",
                     "/wo" "rk/x/y"):
            with self.subTest(text):
                self.write("docs/a.md", f"fine\n{text}\n")
                self.assert_finds(forbidden_words.lint(self.root), "docs/a.md:2")

    def test_other_words_pass(self):
        self.write("docs/a.md",
                   "a part of it, specific and special; -isystem /usr/include/work/a\n")
        self.assertEqual(forbidden_words.lint(self.root), [])

    def test_a_file_name_counts_too(self):
        self.write("docs/sp" "ec.md", "")
        self.assert_finds(forbidden_words.lint(self.root), "docs/sp" "ec.md")
