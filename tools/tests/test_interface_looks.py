"""The lint of interface files finds what a person could not see, read, name or press."""

from sample_interface import SampleInterface, button, rect

DESCRIPTION = '<accessibility description="known"/>'
COLOURS = "".join(f'<color key="{key}"/>'
                  for key in ("textColor", "backgroundColor", "insertionPointColor"))
RETURN_KEY = '<string key="keyEquivalent" base64-UTF8="YES"> DQ </string>'


class Texts(SampleInterface):
    def test_every_visible_text_must_be_a_key(self):
        for before, after in [
                ('<window title="', '" id="a"/>'),
                ('<tabViewItem label="', '" id="a"/>'),
                ('<menuItem title="', '" id="a"/>'),
                ('<menu key="submenu" title="', '" id="a"/>'),
                ('<customView toolTip="', '" id="a"/>'),
                ('<textFieldCell editable="NO" placeholderString="', '" id="a"/>'),
                ('<tableColumn headerTitle="', '" id="a"/>'),
                ('<buttonCell alternateTitle="', '" id="a"/>'),
                ('<accessibility description="', '"/>'),
                ('<accessibility help="', '"/>'),
                ('<window id="a"><string key="title">', "</string></window>")]:
            with self.subTest(before):
                self.fails(1, before + "Unknown" + after, '"Unknown"', "string table")
                self.passes(before + "known" + after)

    def test_a_packed_text_is_unpacked(self):
        self.passes('<window><string key="title" base64-UTF8="YES">\na25vd24\n</string></window>')
        self.fails(1, '<window><string key="title" base64-UTF8="YES">\neHg\n</string></window>',
                   '"xx"')

    def test_what_is_no_word_is_no_key(self):
        for text in ("", " ", "5", "..."):
            with self.subTest(text):
                self.passes(f'<menuItem title="{text}" id="a"/>')

    def test_names_that_nobody_sees_are_no_texts(self):
        self.passes('<customView id="a" userLabel="Some View" identifier="Some"/>'
                    '<menu title="Main Menu" systemMenu="main" id="b"/>'
                    '<tabViewItem identifier="One" id="c"/>')

    def test_without_a_table_there_are_no_keys(self):
        self.write("resources/en.lproj/Localizable.strings", "")
        self.fails(1, '<window title="known"/>', '"known"')


class Cells(SampleInterface):
    def test_a_font_needs_a_size(self):
        self.fails(1, '<font key="font" metaFont="system"/>', "size")
        self.passes('<font key="font" metaFont="system" size="13"/>')

    def test_a_label_must_not_be_editable(self):
        for editable in ("", 'editable="YES"'):
            self.fails(1, f'<textFieldCell id="a" {editable}/>', "label", "editable")
        self.passes('<textFieldCell id="a" editable="NO"/>')

    def test_a_field_with_a_border_is_no_label(self):
        self.passes('<textFieldCell id="a" borderStyle="bezel"/>'
                    '<textFieldCell id="b" borderStyle="border"/>')

    def test_a_progress_indicator_starts_hidden(self):
        self.fails(1, '<progressIndicator id="a"/>', "hidden")
        self.passes('<progressIndicator id="a" hidden="YES"/>')

    def test_a_text_view_says_its_colours(self):
        for colour in ("textColor", "backgroundColor", "insertionPointColor"):
            with self.subTest(colour):
                others = COLOURS.replace(f'<color key="{colour}"/>', "")
                self.fails(1, f'<textView id="a">{DESCRIPTION}{others}</textView>', colour)
        self.passes(f'<textView id="a">{DESCRIPTION}{COLOURS}</textView>')

    def test_the_usual_border_is_not_written(self):
        self.fails(1, '<scrollView id="a" borderType="bezel"/>', "borderType")
        self.passes('<scrollView id="a" borderType="none"/>')


class Names(SampleInterface):
    def test_a_button_needs_a_title_or_a_description(self):
        self.fails(1, button(cell=""), "what it is for")
        self.fails(1, button(cell='title=" "'), "what it is for")
        self.fails(1, button(cell='title="known" imagePosition="only"'), "what it is for")
        self.passes(button())
        self.passes(button(cell="", inside=DESCRIPTION))
        self.passes(button(cell="", in_cell=DESCRIPTION))

    def test_other_controls_need_a_description(self):
        controls = ['<popUpButton id="a"><popUpButtonCell key="cell" title="known">{}'
                    "</popUpButtonCell></popUpButton>",
                    '<tokenField id="a">'
                    '<tokenFieldCell key="cell">{}</tokenFieldCell></tokenField>',
                    '<textField id="a">'
                    '<textFieldCell key="cell" borderStyle="bezel" editable="YES">{}'
                    "</textFieldCell></textField>",
                    f'<textView id="a">{COLOURS}{{}}</textView>']
        for control in controls:
            with self.subTest(control):
                self.fails(1, control.format(""), "what it is for")
                self.fails(1, control.format('<accessibility description=" "/>'), "what it is for")
                self.passes(control.format(DESCRIPTION))

    def test_a_control_may_be_connected_to_its_label(self):
        label = ('<textField id="a"><textFieldCell key="cell" editable="NO" title="known"/>'
                 "</textField>")
        connection = ('<accessibility><connections><accessibilityConnection property="{}"'
                      ' destination="a" id="c"/></connections></accessibility>')
        self.passes(label, f'<tokenField id="b">{connection.format("title")}</tokenField>')
        self.fails(1, label + f'<tokenField id="b">{connection.format("link")}</tokenField>',
                   "tokenField")

    def test_labels_and_tab_views_speak_for_themselves(self):
        self.passes('<textField id="a"><textFieldCell key="cell" editable="NO"/></textField>'
                    '<tabView id="b"/>')


class Rows(SampleInterface):
    def row(self, attributes="", cell="", inside=True):
        pop_up = (f'<popUpButton id="p" {attributes}>{DESCRIPTION}'
                  f'<popUpButtonCell key="cell" {cell}/></popUpButton>')
        view = (f'<view id="v">{pop_up}</view>' if inside
                else f'<view id="v"/><view id="other">{pop_up}</view>')
        return ('<collectionViewItem id="i"><connections>'
                '<outlet property="view" destination="v" id="c"/>'
                f"</connections></collectionViewItem>\n{view}")

    def test_the_pop_up_of_a_row_is_a_plain_one(self):
        self.write("windows/Pop.h", "@interface Pop : NSPopUpButton\n@end\n")
        self.passes(self.row())
        self.fails(2, self.row(cell='pullsDown="YES"'), "plain pop-up")
        self.fails(2, self.row('customClass="Pop"'), "plain pop-up")

    def test_elsewhere_it_may_be_another(self):
        self.passes(self.row(cell='pullsDown="YES"', inside=False))

    def test_the_view_of_a_row_may_stand_in_its_item(self):
        self.fails(1, '<collectionViewItem id="i"><view key="view" id="v"><popUpButton id="p">'
                      f'{DESCRIPTION}<popUpButtonCell key="cell" pullsDown="YES"/></popUpButton>'
                      "</view></collectionViewItem>", "plain pop-up")


class Keys(SampleInterface):
    def in_tabs(self, *contents):
        items = "".join(f'<tabViewItem id="t{number}">\n{content}</tabViewItem>'
                        for number, content in enumerate(contents))
        return f'<tabView id="tabs">{items}</tabView>'

    def in_window(self, content):
        return f'<window id="w">{content}</window>'

    def pressed_by(self, name, key):
        return (f'<button id="{name}">'
                f'<buttonCell key="cell" title="known" keyEquivalent="{key}"/></button>\n')

    def test_two_buttons_of_a_window_must_not_share_a_key(self):
        same = self.pressed_by("a", "x") + self.pressed_by("b", "x")
        self.fails(2, self.in_window(same), 'button "b"', 'button "a"')
        self.passes(self.in_window(self.pressed_by("a", "x") + self.pressed_by("b", "y")))

    def test_nor_may_those_of_a_view_that_stands_alone(self):
        same = self.pressed_by("a", "x") + self.pressed_by("b", "x")
        self.fails(2, f'<view id="v">{same}</view>', "same key")

    def test_windows_and_tabs_may_use_a_key_again(self):
        self.passes(self.in_window(self.pressed_by("a", "x")),
                    self.in_window(self.pressed_by("b", "x")).replace('id="w"', 'id="u"'))
        tabs = self.in_tabs(self.pressed_by("a", "x"), self.pressed_by("b", "x"))
        self.passes(self.in_window(tabs))

    def test_a_button_beside_the_tabs_is_seen_with_each_of_them(self):
        tabs = self.in_tabs(self.pressed_by("a", "x"))
        self.fails(3, self.in_window(tabs + self.pressed_by("b", "x")),
                   "same key")

    def test_a_packed_key_is_the_same_key(self):
        packed = ('<button id="{}"><buttonCell key="cell" title="known">'
                  f"{RETURN_KEY}</buttonCell></button>")
        two = packed.format("a") + "\n" + packed.format("b")
        self.fails(2, self.in_window(two), "same key")

    def test_other_modifiers_make_another_key(self):
        mask = '<modifierMask key="keyEquivalentModifierMask" shift="YES"/>'
        shift = self.pressed_by("b", "x").replace("/></button>", f">{mask}</buttonCell></button>")
        self.passes(self.in_window(self.pressed_by("a", "x") + shift))


class Frames(SampleInterface):
    def holding(self, *views, width=100, height=50):
        frame = rect(0, 0, width, height)
        return f'<view id="v">{frame}<subviews>\n' + "\n".join(views) + "\n</subviews></view>"

    def box(self, name, *numbers, cell="", attributes='fixedFrame="YES"'):
        return button(name, cell=f'title="known" {cell}', frame=rect(*numbers),
                      attributes=attributes).strip()

    def test_a_view_must_not_stick_out_of_what_holds_it(self):
        self.passes(self.holding(self.box("a", 0, 0, 100, 50)))
        for numbers in ((-1, 0, 50, 50), (0, -1, 50, 50), (51, 0, 50, 50), (0, 1, 50, 50)):
            with self.subTest(numbers):
                self.fails(2, self.holding(self.box("a", *numbers)),
                           'button "a"', "sticks out", 'view "v"')

    def test_the_padding_of_a_push_button_may(self):
        self.passes(self.holding(self.box("a", -6, -6, 112, 62, cell='type="push"')))
        self.fails(2, self.holding(self.box("a", -7, 0, 50, 50, cell='type="push"')), "sticks out")

    def test_what_layout_rules_move_is_left_alone(self):
        self.passes(self.holding(self.box("a", -50, 0, 50, 50, attributes="")))

    def test_the_contents_of_a_window_and_of_a_tab_fit_them(self):
        window = ('<window id="w">'
                  '<rect key="contentRect" x="300" y="300" width="100" height="50"/>\n'
                  '<view key="contentView" id="v">{}</view></window>')
        self.passes(window.format(rect(0, 0, 100, 50)))
        self.fails(2, window.format(rect(0, 0, 101, 50)), "sticks out", 'window "w"')
        tabs = (f'<tabView id="t">{rect(0, 0, 100, 50)}<tabViewItems>'
                '<tabViewItem id="i">\n'
                '<view key="view" id="v">{}</view></tabViewItem></tabViewItems></tabView>')
        self.passes(tabs.format(rect(10, 10, 80, 30)))
        self.fails(2, tabs.format(rect(10, 30, 80, 30)), "sticks out", 'tabView "t"')

    def test_what_scrolls_may_be_larger_than_its_window(self):
        self.passes(f'<clipView id="c">{rect(0, 0, 50, 50)}<subviews>'
                    f'<customView id="d" fixedFrame="YES">{rect(0, 0, 50, 500)}</customView>'
                    "</subviews></clipView>")

    def test_controls_must_not_lie_on_each_other(self):
        self.passes(self.holding(self.box("a", 0, 0, 50, 50), self.box("b", 50, 0, 50, 50)))
        self.fails(3, self.holding(self.box("a", 0, 0, 50, 50), self.box("b", 49, 0, 50, 50)),
                   'button "b"', 'lies on button "a"')

    def test_the_paddings_of_push_buttons_may(self):
        def pair(distance):
            return self.holding(self.box("a", 0, 0, 50, 32, cell='type="push"'),
                                self.box("b", distance, 0, 50, 32, cell='type="push"'))
        self.passes(pair(38))
        self.fails(3, pair(37), "lies on")

    def test_a_hidden_view_may_take_the_place_of_another(self):
        hidden = self.box("b", 0, 0, 50, 50, attributes='fixedFrame="YES" hidden="YES"')
        self.passes(self.holding(self.box("a", 0, 0, 50, 50), hidden))

    def test_a_progress_indicator_may_not(self):
        spinner = ('<progressIndicator id="s" hidden="YES" fixedFrame="YES">'
                   f"{rect(0, 0, 16, 16)}</progressIndicator>")
        self.fails(3, self.holding(self.box("a", 0, 0, 50, 50), spinner),
                   'progressIndicator "s"', "lies on")

    def test_views_of_different_superviews_are_not_compared(self):
        self.passes(self.holding(self.box("a", 0, 0, 50, 50)),
                    self.holding(self.box("b", 0, 0, 50, 50)).replace('id="v"', 'id="u"'))
