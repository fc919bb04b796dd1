"""A document that names a missing test is found."""

from sample import SampleProject

import named_tests

TESTS = "TEST_F(Peers, DoNoHarm) {\n}\nTEST_P(Names, AreNames) {\n}\n"


class NamedTests(SampleProject):
    def setUp(self):
        super().setUp()
        self.write("tests/e2e/a.mm", TESTS)

    def findings(self, text):
        self.write("docs/security.md", text)
        return named_tests.lint(self.root)

    def test_tests_that_are_there_pass(self):
        self.assertEqual(self.findings("`Peers.DoNoHarm`, `Names.*`, `Names.AreNames/Long`,"
                                       " `Peers.DoNo*`\n"), [])

    def test_a_test_that_is_not_there_is_found(self):
        self.assert_finds(self.findings("fine\n`Peers.DoHarm`\n"), "docs/security.md:2")
        self.assert_finds(self.findings("`Peer.*`\n"), "Peer.*")

    def test_files_and_methods_are_no_tests(self):
        self.assertEqual(self.findings("`a.mm`, `docs/security.md`\n"), [])
