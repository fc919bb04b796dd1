"""The lint of interface files finds connections that join nothing or what does not fit."""

from sample_interface import FIRST, HEAD, HEADER, TAB, SampleInterface, button

import interface_files

GOOD = TAB + button()


class RecordReader(SampleInterface):
    def test_a_good_file_passes(self):
        self.passes(GOOD)

    def test_what_is_no_xml_is_found_where_it_breaks(self):
        self.write("resources/A.xib", HEAD + "<window>\n</windows>\n")
        self.assert_finds(self.lint(), f"A.xib:{FIRST + 1}:", "mismatched tag")

    def test_a_broken_file_does_not_hide_the_others(self):
        self.write("resources/A.xib", "<document>")
        self.interface('<textField id="a" customClass="Nowhere"/>\n', name="B")
        self.assertEqual(len(self.lint()), 2)

    def test_a_file_in_a_format_for_other_tools_is_found(self):
        self.write("resources/A.xib", HEAD.replace('<deployment identifier="macosx"/>\n', "")
                   + GOOD + "</objects>\n</document>\n")
        self.assert_finds(self.lint(), "A.xib:2:", "deployment")

    def test_an_id_that_stands_twice_is_found(self):
        self.fails(2, '<view id="a"/>\n<view id="a"/>\n', '"a"', f"line {FIRST}")

    def test_files_do_not_share_ids(self):
        self.interface('<view id="a"/>', name="B")
        self.passes('<view id="a"/>')


class References(SampleInterface):
    def test_a_reference_to_nothing_is_found_in_every_form(self):
        for attribute in ("selectedItem", "initialItem", "headerView", "destination", "target"):
            with self.subTest(attribute):
                self.fails(2, f'<view id="a"/>\n<customView {attribute}="b"/>\n', attribute, '"b"')
                self.passes(f'<view id="a"/><customView {attribute}="a"/>')

    def test_the_files_owner_exists_when_it_is_declared(self):
        binding = ('<customObject id="a"><connections><binding destination="-2" name="value"/>'
                   "</connections></customObject>")
        self.fails(1, binding, '"-2"')
        self.passes(binding, '<customObject id="-2" customClass="NSApplication"/>')

    def test_a_connection_without_an_end_is_found(self):
        self.fails(1, '<window id="a"><connections><outlet property="delegate" id="b"/>'
                      "</connections></window>", "delegate", "no destination")
        self.fails(1, '<menuItem id="a"><connections><action selector="copy:" id="b"/>'
                      "</connections></menuItem>", "copy:", "no target")


class Classes(SampleInterface):
    def test_a_class_that_no_header_declares_is_found_once(self):
        connections = '<connections><outlet property="x" destination="a" id="b"/></connections>'
        self.fails(1, f'<customObject id="a" customClass="Nowhere">{connections}</customObject>',
                   "Nowhere", "would not load")

    def test_the_platforms_and_the_programs_classes_are_known(self):
        self.write("platform/Gap.h", "@interface NSGap : NSView\n@end\n")
        self.passes('<customObject id="-2" customClass="NSApplication"/>'
                    '<customObject id="-1" customClass="FirstResponder"/>'
                    '<window id="w" customClass="NSPanel"/>'
                    '<customView id="v" customClass="NSGap"/>')

    def test_only_the_first_responder_may_be_called_one(self):
        self.fails(1, '<customObject id="a" customClass="FirstResponder"/>', "FirstResponder")

    def test_adding_to_a_class_does_not_declare_it(self):
        self.write("platform/Gap.h", "@interface NSSlider (More)\n@end\n")
        self.fails(1, '<customView id="v" customClass="NSSlider"/>', "NSSlider")

    def test_nor_does_a_forward_declaration(self):
        self.write("platform/Gap.h", "@class NSGap;\n")
        self.fails(1, '<customView id="v" customClass="NSGap"/>', "NSGap")


class Outlets(SampleInterface):
    def connect(self, outlet, destination, more="", of="Tab"):
        return (f'<customObject id="x" customClass="{of}"><connections>\n'
                f'<outlet property="{outlet}" destination="{destination}" id="x1"/>\n'
                f"</connections></customObject>{more}" + GOOD)

    def test_an_outlet_that_the_class_does_not_have_is_found(self):
        self.fails(2, self.connect("wrong", "window"), "Tab has no outlet wrong")

    def test_an_outlet_of_a_superclass_or_a_class_extension_will_do(self):
        self.write("windows/Other.h", '#import "windows/Tab.h"\n@interface Other : Tab\n@end\n')
        self.write("windows/Other.mm", '#import "windows/Other.h"\n'
                                       "@interface Other ()\n"
                                       "@property (assign) IBOutlet id hidden;\n@end\n")
        hidden = ('<customObject id="y" customClass="Other"><connections>'
                  '<outlet property="hidden" destination="x" id="y1"/>'
                  "</connections></customObject>")
        self.passes(self.connect("sheet", "window", hidden, of="Other"))

    def test_a_method_or_another_property_is_no_outlet(self):
        self.write("windows/Tab.h",
                   HEADER.replace("@end", "@property (assign) NSWindow *plain;\n@end"))
        self.fails(2, self.connect("plain", "window"), "plain")

    def test_the_platforms_outlets_are_known(self):
        def window(outlet):
            return ('<window id="w"><connections>\n'
                    f'<outlet property="{outlet}" destination="v" id="c"/>\n'
                    '</connections></window><customView id="v"/>')

        self.passes(window("initialFirstResponder"))
        self.fails(2, window("nextKeyView"), "NSWindow has no outlet nextKeyView")

    def test_an_outlet_takes_its_class_and_what_derives_from_it(self):
        self.fails(2, self.connect("notify", "window"), "takes a NSButton", 'window "window"')
        self.passes(self.connect("sheet", "panel", '<window id="panel" customClass="NSPanel"/>'))
        pop_up = '<popUpButton id="pop"><accessibility description="known"/></popUpButton>'
        self.passes(self.connect("notify", "pop", pop_up))
        self.fails(2, self.connect("notify", "field", '<textField id="field"/>'), "NSTextField")

    def test_an_outlet_of_any_class_takes_everything(self):
        self.write("windows/Tab.h", HEADER.replace("NSWindow *sheet", "id<NSCoding> sheet"))
        self.passes(self.connect("sheet", "box"))

    def test_of_an_element_of_unknown_class_no_fit_is_demanded(self):
        self.passes(self.connect("sheet", "new", '<newKindOfWindow id="new"/>'))

    def test_the_platforms_outlets_take_their_class_only(self):
        item = ('<collectionView id="c"><connections>\n'
                '<outlet property="itemPrototype" destination="d" id="e"/>\n'
                "</connections></collectionView>")
        self.passes(item + '<collectionViewItem id="d"/>')
        self.fails(2, item + '<view id="d"/>', "NSCollectionViewItem")

    def test_an_outlet_that_nothing_connects_is_found(self):
        self.assert_finds(self.findings('<customObject id="tab" customClass="Tab"><connections>'
                                        '<outlet property="notify" destination="box" id="c1"/>'
                                        "</connections></customObject>", button()),
                          "windows/Tab.h:6:", "sheet of Tab")

    def test_an_outlet_may_be_connected_in_another_file(self):
        self.interface(GOOD, name="B")
        self.passes('<customObject id="tab" customClass="Tab"/>')

    def test_outlets_of_a_class_that_no_file_makes_may_be_unconnected(self):
        self.passes('<view id="a"/>')

    def test_an_outlet_with_a_reason_may_be_unconnected(self):
        name = "ContextMenuAppAppDelegate"
        self.write("app/Delegate.h", f"@interface {name} : NSObject\n"
                                     "@property (assign) IBOutlet NSWindow *window;\n@end\n")
        self.passes(f'<customObject id="a" customClass="{name}"/>')


class Actions(SampleInterface):
    def send(self, selector, target="tab"):
        connection = (f'<connections>\n<action selector="{selector}" target="{target}" id="a1"/>\n'
                      "</connections>")
        return TAB.replace("\n", "") + button(inside=connection)

    def test_an_action_must_be_declared_as_one(self):
        self.passes(self.send("send:"))
        self.fails(2, self.send("notAnAction:"), "Tab declares no action notAnAction:")

    def test_an_action_of_a_category_will_do(self):
        self.write("windows/Tab+More.h", '#import "windows/Tab.h"\n@interface Tab (More)\n'
                                         "- (IBAction)more:(id)sender;\n@end\n")
        self.passes(self.send("more:"))

    def test_the_platforms_actions_are_known(self):
        self.passes(self.send("performClose:", "window"))
        self.fails(2, self.send("send:", "window"), "NSWindow declares no action send:")

    def test_the_first_responder_takes_the_standard_actions(self):
        first = '<customObject id="-1" customClass="FirstResponder"/>'
        self.passes(self.send("selectAll:", "-1"), first)
        self.fails(2, self.send("send:", "-1") + first, "send:", "first responder")


class Declarations(SampleInterface):
    def declared(self, text):
        self.write("windows/Tab.h", text)
        return self.classes()

    def outlets(self, declarations):
        found = self.declared(f"@interface A : NSObject {{\n{declarations}\n}}\n@end\n")
        return {name: outlet.type for name, outlet in found["A"].outlets.items()}

    def test_outlets_are_read_in_every_form(self):
        self.assertEqual(self.outlets("IBOutlet NSButton *a;\n"
                                      "@private IBOutlet NSTextField *b, *c;"),
                         {"a": "NSButton", "b": "NSTextField", "c": "NSTextField"})
        self.assertEqual(self.outlets("IBOutlet id a; IBOutlet id<NSCopying, NSCoding> d;"
                                      " NSButton *e; IBOutlet NSArray<NSString *> *f;"),
                         {"a": "id", "d": "id", "f": "NSArray"})

    def test_a_property_may_be_an_outlet_whatever_its_attributes(self):
        found = self.declared(
            "@interface A : NSObject\n"
            "@property (nonatomic, retain) IBOutlet NSMenu *a __attribute__((unused));\n"
            "@property (getter=isB, assign) IBOutlet id b;\n"
            "@property (assign) NSMenu *c;\n@end\n")
        self.assertEqual({name: outlet.type for name, outlet in found["A"].outlets.items()},
                         {"a": "NSMenu", "b": "id"})

    def test_what_is_not_compiled_is_not_declared(self):
        self.assertEqual(self.outlets("// IBOutlet NSButton *a;\n/* IBOutlet NSButton *b; */\n"
                                      "#if 0\nIBOutlet NSButton *c;\n#endif"), {})

    def test_what_a_macro_declares_is_declared(self):
        self.assertEqual(self.outlets("#define FIELD(name) IBOutlet NSTextField *name\n"
                                      "FIELD(a);\nFIELD(b);"),
                         {"a": "NSTextField", "b": "NSTextField"})
        found = self.declared("#define SENT_BY(name) - (IBAction)name:(id)sender\n"
                              "@interface A : NSObject\nSENT_BY(button);\n@end\n")
        self.assertEqual(found["A"].actions, {"button:"})

    def test_a_class_by_another_name_is_that_class(self):
        found = self.declared("typedef NSTextField Field;\ntypedef id Anything;\n"
                              "@interface A : NSObject {\n IBOutlet Field *a;\n"
                              " IBOutlet Anything b;\n}\n@end\n")
        self.assertEqual({name: outlet.type for name, outlet in found["A"].outlets.items()},
                         {"a": "NSTextField", "b": "id"})

    def test_what_a_class_extension_declares_belongs_to_the_class(self):
        self.write("windows/Tab.mm", '#import "windows/Tab.h"\n'
                                     "@interface A ()\n"
                                     "@property (assign) IBOutlet NSMenu *a;\n"
                                     "- (IBAction)b:(id)sender;\n@end\n")
        found = self.declared("@interface A : NSObject\n@end\n")["A"]
        outlet = found.outlets["a"]
        self.assertEqual((outlet.type, str(outlet.path), outlet.line),
                         ("NSMenu", "windows/Tab.mm", 3))
        self.assertEqual((found.superclass, found.actions), ("NSObject", {"b:"}))

    def test_actions_are_read_in_every_form(self):
        found = self.declared(
            "@interface A : NSView <NSCoding>\n- (IBAction) a : (id) sender;\n-(IBAction)b;\n"
            "- (IBAction)c:(NSArray<id> *)x with:(void (*)(int))y;\n- (void)d:(id)x;\n@end\n")
        self.assertEqual(found["A"].actions, {"a:", "b", "c:with:"})
        self.assertEqual(found["A"].superclass, "NSView")

    def test_classes_that_follow_one_another_are_told_apart(self):
        found = self.declared("@class C;\n@interface A : NSObject\n@end\n"
                              "@interface C : NSView\n- (IBAction)e:(id)x;\n@end\n")
        self.assertEqual((found["A"].actions, found["C"].actions), (set(), {"e:"}))

    def test_a_superclass_may_be_declared_in_another_header(self):
        self.write("ui/Base.h", "#define BASE NSPanel\n@interface Base : BASE\n"
                                "@property (assign) IBOutlet NSMenu *inherited;\n@end\n")
        found = self.declared('#import "ui/Base.h"\n@interface A : Base\n@end\n')
        self.assertEqual((found["A"].superclass, found["Base"].superclass), ("Base", "NSPanel"))
        self.assertEqual(list(found["Base"].outlets), ["inherited"])


class Sources(SampleInterface):
    def test_sources_that_do_not_go_together_are_read_each(self):
        for name in ("A", "B"):
            self.write(f"windows/{name}.mm", "enum { kSame };\n"
                                             f"@interface {name} : NSObject {{\n"
                                             " IBOutlet id a;\n}\n"
                                             "@end\n")
        self.assertEqual({name for name, each in self.classes().items() if "a" in each.outlets},
                         {"A", "B"})

    def test_a_source_that_does_not_compile_is_found(self):
        self.write("windows/Good.mm", "@interface Good : NSObject\n@end\n")
        self.write("windows/Bad.mm", "@interface Bad : Nowhere\n@end\n")
        build = self.configure("-include", "AppKit/AppKit.h")
        self.assert_finds(interface_files.lint(self.root, build), "windows/Bad.mm:1:", "Nowhere")
