  $ . "$TESTDIR/setup.sh"

Every faulty file has its message, and the messages name them all. Another installed file has the name "Taken".

  $ description Taken >other.xml
  $ digitizer install other.xml
  "Taken" is installed: DIR/home/DigitizerGeneric/generated/other.xml
  $ cd "$sources/Tests/Lint"
  $ for file in *.xml; do run digitizer lint $file; done | sed "s|DIR/home/[^ ]*/||" >"$folder/said"
  $ grep -v '^#' expected.txt | grep . | diff -u - "$folder/said"
  $ ls *.xml | grep -vxF "$(cut -d: -f1 "$folder/said")"
  [1]

The shipped descriptions and the examples have no faults.

  $ digitizer lint "$sources"/Plugins/digitizer/generated/* "$sources"/Examples/*/*.xml

The "Lectra E92" has a layout of its own, in any letter case; it needs no report in its file.

  $ (cd "$folder" && description 'lectra e92' | sed '1s/$/<\/device>/;1q' >own.xml && sed 's/lectra //' own.xml >others.xml)
  $ digitizer lint "$folder/own.xml"
  $ digitizer lint "$folder/others.xml"
  DIR/others.xml:1:1: error: "device" has no element "resolution"
  DIR/others.xml:1:1: error: "device" has no element "reportFormat"
  DIR/others.xml:1:1: error: "device" has no element "buttons"
  [1]

Only errors, not warnings, set the exit status.

  $ digitizer lint unit-unknown.xml
  unit-unknown.xml:3:15: warning: "unit" is "lpi", which is not one of LPI, LPMM
  $ digitizer lint codes-equal.xml
  codes-equal.xml:6:67: error: the code "2" is already that of the button in line 6
  [1]
  $ digitizer lint --format json unit-unknown.xml codes-equal.xml
  {"column":12,"file":"unit-unknown.xml","line":1,"message":"the name \"Corpus\" is already used by codes-equal.xml","severity":"error"}
  {"column":15,"file":"unit-unknown.xml","line":3,"message":"\"unit\" is \"lpi\", which is not one of LPI, LPMM","severity":"warning"}
  {"column":12,"file":"codes-equal.xml","line":1,"message":"the name \"Corpus\" is already used by unit-unknown.xml","severity":"error"}
  {"column":67,"file":"codes-equal.xml","line":6,"message":"the code \"2\" is already that of the button in line 6","severity":"error"}
  [1]
  $ digitizer lint none.xml unit-unknown.xml
  unit-unknown.xml:3:15: warning: "unit" is "lpi", which is not one of LPI, LPMM
  digitizer: cannot read none.xml: No such file or directory
  [1]
  $ digitizer lint .
  digitizer: cannot read .: not a regular file
  [1]

Wrong arguments.

  $ digitizer lint
  digitizer: FILE is missing (see 'digitizer lint --help')
  [2]
  $ digitizer lint --format xml unit-unknown.xml
  digitizer: --format is 'xml', but must be one of text, json
  [2]
