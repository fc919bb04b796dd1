"""The part of the lint of interface files that checks their format: that the ibtool for old systems
and today's compile them, each for its oldest system."""

DOCUMENT = {
    "type": "com.apple.InterfaceBuilder3.Cocoa.XIB",
    "version": "3.0",
    "targetRuntime": "MacOSX.Cocoa",
}
PLUG_IN = "com.apple.InterfaceBuilder.CocoaPlugin"
# That of Xcode 9.4.1, which builds for old systems. Later ones read the files of all earlier ones.
NEWEST_TOOLS = 14113

# The format is that of Xcode 8 and later. Without this, tools take a file for an older one.
FORMAT = {"name": "documents saved in the Xcode 8 format", "minToolsVersion": "8.0"}

# Elements that 10.6 has no class for, with the system that brought it.
LATER_ELEMENTS = {
    "constraint": "10.7", "popover": "10.7", "pagecontroller": "10.8", "stackView": "10.9",
    "visualEffectView": "10.10", "tabViewController": "10.10", "splitViewController": "10.10",
    "gridView": "10.12", "touchBar": "10.12.2",
}
LATER_ATTRIBUTES = {
    "useAutolayout": "10.7", "translatesAutoresizingMaskIntoConstraints": "10.7",
}


def check(interface):
    document = interface.root
    for attribute, value in DOCUMENT.items():
        if document.get(attribute) != value:
            interface.add(document, f'{attribute} is "{document.get(attribute)}", not "{value}"')
    version = document.get("toolsVersion")
    if not version.split(".")[0].isdigit() or int(version.split(".")[0]) > NEWEST_TOOLS:
        interface.add(document, f'toolsVersion is "{version}"; ibtool for old systems reads up to'
                                f" {NEWEST_TOOLS}")
    dependencies(interface, document, version)
    for element in document.descendants():
        system = LATER_ELEMENTS.get(element.tag)
        if system:
            interface.add(element, f"{element.tag} needs {system}")
        for attribute, since in LATER_ATTRIBUTES.items():
            if element.get(attribute):
                interface.add(element, f"{attribute} needs {since}")


def dependencies(interface, document, version):
    found = [element for part in document.all("dependencies") for element in part.children]
    deployments = [element for element in found if element.tag == "deployment"]
    # Without it, or with a version in it, ibtool may not compile for the system that it is told.
    if len(deployments) != 1 or deployments[0].attributes != {"identifier": "macosx"}:
        interface.add(deployments[0] if deployments else document,
                      'the dependencies must have <deployment identifier="macosx"/>, without a'
                      " version: that comes from the build")
    plug_ins = [element for element in found if element.tag == "plugIn"]
    if [(element.get("identifier"), element.get("version")) for element in plug_ins] != [
            (PLUG_IN, version)]:
        interface.add(plug_ins[0] if plug_ins else document,
                      f"the dependencies must have the plug-in {PLUG_IN} in version {version}")
    others = [element for element in found if element.tag not in ("deployment", "plugIn")]
    if FORMAT not in [element.attributes for element in others if element.tag == "capability"]:
        interface.add(document, f'the dependencies must have the capability "{FORMAT["name"]}"')
    for element in others:
        if element.attributes != FORMAT:
            interface.add(element, f"{element.tag} demands a certain version of the tools")
