# Lines of what was built, loaded and used become a document in SPDX 2.3 form.

def rows: split("\n") | map(select(. != "") | split("\t"));
def id($kind): "SPDXRef-" + $kind + "-" + gsub("[^A-Za-z0-9.]"; "-");
def relation($from; $type; $to): {spdxElementId: $from, relationshipType: $type, relatedSpdxElement: $to};

def package($id; $name; $version; $supplier; $licence): {
    SPDXID: $id,
    name: $name,
    versionInfo: $version,
    supplier: $supplier,
    downloadLocation: "NOASSERTION",
    filesAnalyzed: false,
    licenseConcluded: "NOASSERTION",
    licenseDeclared: $licence,
    copyrightText: "NOASSERTION"
};

# What a part of each use is to the display.
def use_relation($part; $display):
    if . == "linked" then empty
    elif . == "compiled" then relation($display; "STATIC_LINK"; $part)
    elif . == "drawn" then relation("romfs/resources.pbr" | id("File"); "GENERATED_FROM"; $part)
    elif . == "build" then relation($part; "BUILD_TOOL_OF"; $display)
    else relation($part; "TEST_TOOL_OF"; $display)
    end;

("display" | id("Package")) as $display
| ($files | rows) as $files
| ($parts | rows) as $parts
| ($rooms | rows | map(.[0])) as $rooms
| {
    spdxVersion: "SPDX-2.3",
    dataLicense: "CC0-1.0",
    SPDXID: "SPDXRef-DOCUMENT",
    name: "integrated-display",
    documentNamespace: $namespace,
    creationInfo: {created: $created, creators: ["Tool: tools-parts-list"]},
    packages: (
        [package($display; "integrated-display"; $version; "Organization: The integrated display"; "NOASSERTION")]
        + [$rooms[] | package(id("Room"); .; $version; "Organization: The integrated display"; "NOASSERTION")]
        + [$parts[] | package(.[0] | id("Part"); .[0]; .[2];
            if .[0] == "playwright-core" then "Organization: npm" else "Organization: Debian" end; .[3])]
    ),
    files: [$files[] | {
        SPDXID: (.[0] | id("File")),
        fileName: ("./" + .[0]),
        checksums: [{algorithm: "SHA1", checksumValue: .[1]}, {algorithm: "SHA256", checksumValue: .[2]}],
        licenseConcluded: "NOASSERTION",
        copyrightText: "NOASSERTION"
    }],
    relationships: (
        [relation("SPDXRef-DOCUMENT"; "DESCRIBES"; $display)]
        + [$rooms[] | relation($display; "CONTAINS"; id("Room"))]
        + [$files[] | relation($display; "CONTAINS"; .[0] | id("File"))]
        + [$loads | rows[] | (.[0] | id("File")) as $file | (.[2] | id("Part")) as $part
            | if .[1] == "DYNAMIC_LINK" then relation($file; .[1]; $part) else relation($part; .[1]; $file) end]
        + [$parts[] | (.[0] | id("Part")) as $part | .[1] | use_relation($part; $display)]
    )
}
