"""The lint of the string tables finds each fault, and accepts the same text without it."""

from sample import SampleProject

import string_tables


class StringTables(SampleProject):
    def setUp(self):
        super().setUp()
        self.tables('"a" = "x";\n', '"a" = "y";\n')
        self.write("app/a.mm", 'localizedText(@"a");\n')

    def table(self, language, content):
        self.write(f"resources/{language}.lproj/Localizable.strings", content)

    def tables(self, english, translation):
        """Gives every language a table: English the one, all others the other."""
        for language in string_tables.LANGUAGES:
            self.table(language, english if language == "en" else translation)

    def find(self, *parts):
        self.assert_finds(string_tables.lint(self.root), *parts)

    def find_nothing(self):
        self.assertEqual(string_tables.lint(self.root), [])

    def test_a_good_set_passes(self):
        self.tables('/* note */\n"a" = "%1$@ of %2$@ \\"x\\" 100%%"; // end\n',
                    '"a" = "%2$@, é「リ」\\U00A0%1$@ 100%% \\n\\"x\\"";\n')
        self.find_nothing()

    def test_a_language_without_a_table_is_found(self):
        self.git("rm", "--quiet", "--force", "resources/pt-BR.lproj/Localizable.strings")
        self.find("resources/pt-BR.lproj", "no table")

    def test_a_missing_and_a_surplus_key_are_found(self):
        self.table("fr", '"b" = "y";\n"a" = "y";\n')
        self.find("fr.lproj", ":1", '"b"')
        self.table("fr", "")
        self.find("fr.lproj", '"a"', "missing")

    def test_a_key_that_stands_twice_is_found(self):
        self.table("en", '"a" = "x";\n"a" = "z";\n')
        self.find(":2", "twice")

    def test_a_bare_percent_sign_is_found(self):
        for text in ("100%", "100% sure", "%", "50 %-off"):
            with self.subTest(text):
                self.table("fr", f'"a" = "{text}";\n')
                self.find("percent")

    def test_other_format_arguments_are_found(self):
        self.tables('"a" = "%@ %d";\n', '"a" = "%@, %d";\n')
        self.find_nothing()
        self.table("fr", '"a" = "%d %@";\n')
        self.find("fr.lproj", "format arguments")

    def test_a_table_that_is_not_utf_8_is_found(self):
        for encoding in ("latin-1", "utf-16", "utf-16-le"):
            with self.subTest(encoding):
                self.table("fr", '// è\n"a" = "é";\n'.encode(encoding))
                self.find("fr.lproj", ":1", "not UTF-8")

    def test_a_byte_order_mark_is_found(self):
        self.table("fr", '"a" = "é";\n'.encode("utf-8-sig"))
        self.find("fr.lproj", ":1", "byte order mark")

    def test_an_escape_for_what_can_be_written_is_found(self):
        for escape, character in (("\\U00e9", "é"), ("\\U30EA", "リ"), ("\\U0078", "x"),
                                  ("\\UD83D\\UDE00", "\U0001f600"), ("\\'", "'")):
            with self.subTest(escape):
                self.table("fr", f'"a" = "y{escape}";\n')
                self.find("fr.lproj", ":1", f"write {character} instead of {escape}")

    def test_a_character_that_cannot_be_seen_is_found(self):
        for character, escape in (("\u00a0", "\\U00A0"), ("\u202f", "\\U202F"),
                                  ("\u200b", "\\U200B"), ("\n", "\\n"), ("\t", "\\t")):
            with self.subTest(escape):
                self.table("fr", f'"a" = "y{character}y";\n')
                self.find("fr.lproj", ":1", f"write {escape}")
                self.table("fr", f'"a" = "y{escape}y";\n')
                self.find_nothing()

    def test_other_tables_are_read_too(self):
        self.write("packaging/macos/fr.lproj/InfoPlist.strings", '"b" = "\\U00e9";\n')
        self.find("InfoPlist.strings:1", "instead of \\U00e9")

    def test_a_malformed_escape_is_found(self):
        self.table("fr", '"a" = "\\u00e9";\n')
        self.find("unknown escape \\u")
        for text in ("\\U00g9", "\\U12", "a\\U"):
            with self.subTest(text):
                self.table("fr", f'"a" = "{text}";\n')
                self.find("fr.lproj", ":1", "four hexadecimal digits")

    def test_half_a_character_is_found(self):
        for text in ("\\UD83D", "\\UDE00\\UD83D"):
            with self.subTest(text):
                self.table("fr", f'"a" = "{text}";\n')
                self.find("half of a pair")
        self.table("fr", '"a" = "\U0001f600";\n')
        self.find_nothing()

    def test_an_empty_text_is_found(self):
        for text in ("", " ", "\\U00A0"):
            with self.subTest(text):
                self.table("fr", f'"a" = "{text}";\n')
                self.find("fr.lproj", '"a" has no text')

    def test_blanks_around_a_text_are_found(self):
        for text in (" y", "y ", "y\\U202F", "y\\n"):
            with self.subTest(text):
                self.table("fr", f'"a" = "{text}";\n')
                self.find("fr.lproj", "blanks")

    def test_an_untranslated_text_is_found(self):
        self.table("fr", '"a" = "x";\n')
        self.find("fr.lproj", ":1", '"a" is not translated')

    def test_a_text_that_is_the_same_in_a_language_may_be_listed(self):
        self.tables('"noButtonTitleKey" = "No";\n', '"noButtonTitleKey" = "Nein";\n')
        self.write("app/a.mm", 'localizedText(@"noButtonTitleKey");\n')
        self.table("it", '"noButtonTitleKey" = "No";\n')
        self.find_nothing()
        self.table("de", '"noButtonTitleKey" = "No";\n')
        self.find("de.lproj", "not translated")

    def test_a_label_without_its_colon_is_found(self):
        for text in ("To\\U00A0:", "To："):
            with self.subTest(text):
                self.tables('"a" = "To:";\n', f'"a" = "{text}";\n')
                self.find_nothing()
        self.table("fr", '"a" = "To";\n')
        self.find("fr.lproj", "colon")

    def test_a_broken_table_is_found(self):
        self.table("fr", '"a" = "y";\n"b" = "y"\n"c" = "z";\n')
        self.find(":2", "form")

    def test_a_key_that_no_table_has_is_found(self):
        self.write("windows/a.mm", '// localizedText(@"c")\nlocalizedText(\n    @"b");\n')
        self.find("windows/a.mm:2", '"b"')

    def test_a_key_that_nothing_uses_is_found(self):
        self.tables('"a" = "x";\n"bKey" = "x";\n', '"a" = "y";\n"bKey" = "y";\n')
        self.find("en.lproj/Localizable.strings:2", 'nothing uses "bKey"')
        self.write("windows/a.mm", '// @"bKey"\n')
        self.find("bKey")
        self.write("windows/a.mm", 'Row row = {1, @"bKey"};\n')
        self.find_nothing()

    def test_a_text_of_an_interface_file_is_a_use(self):
        self.tables('"bKey" = "x";\n"cKey" = "x";\n', '"bKey" = "y";\n"cKey" = "y";\n')
        self.write("app/a.mm", "")
        self.write("resources/A.xib",
                   '<document><button title="bKey"/><string key="x">cKey</string></document>')
        self.find_nothing()
        self.write("resources/A.xib",
                   '<document><button userLabel="bKey"/><string key="x">cKey</string></document>')
        self.find('nothing uses "bKey"')

    def test_a_key_in_an_interface_file_that_no_table_has_is_found(self):
        self.write("resources/A.xib", '<document><button title="otherKey"/></document>')
        self.find("resources/A.xib", '"otherKey"')

    def test_a_broken_interface_file_is_found(self):
        self.write("resources/A.xib", "<document>\n<button></document>")
        self.find("resources/A.xib:2", "XML")
