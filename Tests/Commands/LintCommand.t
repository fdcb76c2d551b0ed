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
  DIR/others.xml:1:1: error: element "resolution" is missing, found nothing, accepted <resolution>
  DIR/others.xml:1:1: error: element "reportFormat" is missing, found nothing, accepted <reportFormat>
  DIR/others.xml:1:1: error: element "buttons" is missing, found nothing, accepted <buttons>
  [1]

Only errors, not warnings, set the exit status.

  $ digitizer lint unit-unknown.xml
  unit-unknown.xml:3:15: warning: unknown value of "unit", found "lpi", accepted LPI, LPMM
  $ digitizer lint codes-equal.xml
  codes-equal.xml:6:67: error: code is that of an earlier button, found "2", accepted a code other than that in line 6
  [1]
  $ digitizer lint --format json unit-unknown.xml codes-equal.xml
  {"accepted":"a name that codes-equal.xml does not use","column":12,"file":"unit-unknown.xml","found":"\"Corpus\"","line":1,"severity":"error","what":"name is already used by another file"}
  {"accepted":"LPI, LPMM","column":15,"file":"unit-unknown.xml","found":"\"lpi\"","line":3,"severity":"warning","what":"unknown value of \"unit\""}
  {"accepted":"a name that unit-unknown.xml does not use","column":12,"file":"codes-equal.xml","found":"\"Corpus\"","line":1,"severity":"error","what":"name is already used by another file"}
  {"accepted":"a code other than that in line 6","column":67,"file":"codes-equal.xml","found":"\"2\"","line":6,"severity":"error","what":"code is that of an earlier button"}
  [1]
  $ digitizer lint none.xml unit-unknown.xml
  unit-unknown.xml:3:15: warning: unknown value of "unit", found "lpi", accepted LPI, LPMM
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
