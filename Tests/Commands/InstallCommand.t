  $ . "$TESTDIR/setup.sh"
  $ description New >new.xml
  $ description Broken XxY >broken.xml

A description is copied, and from then on it is a driver.

  $ digitizer install new.xml "$sources/Examples/pen/example-pen.xml"
  "New" is installed: DIR/home/DigitizerGeneric/generated/new.xml
  "Example Pen" is installed: DIR/home/DigitizerGeneric/generated/example-pen.xml
  $ cmp new.xml home/DigitizerGeneric/generated/new.xml
  $ digitizer drivers | grep -A 1 '^New\|^Example'
  Example Pen
    file        DIR/home/DigitizerGeneric/generated/example-pen.xml
  --
  New
    file        DIR/home/DigitizerGeneric/generated/new.xml

Installing the same file again changes nothing; different content needs --force.

  $ digitizer install new.xml
  "New" is installed: DIR/home/DigitizerGeneric/generated/new.xml
  $ description New XXXYYYB >new.xml
  $ digitizer install new.xml
  digitizer: DIR/home/DigitizerGeneric/generated/new.xml already exists and differs from new.xml (--force replaces it)
  [1]
  $ digitizer drivers --format json | grep -o 'XXX*Y*B","name":"New"'
  XXXXYYYYB","name":"New"
  $ digitizer install --force new.xml
  "New" is installed: DIR/home/DigitizerGeneric/generated/new.xml
  $ digitizer drivers --format json | grep -o 'XXX*Y*B","name":"New"'
  XXXYYYB","name":"New"

Files with errors are not installed; the others are.

  $ description Other >other.xml
  $ description 'Warned' XXXXYYYYB '<remark/>' >warned.xml
  $ digitizer install broken.xml none.xml . other.xml warned.xml
  "Other" is installed: DIR/home/DigitizerGeneric/generated/other.xml
  digitizer: broken.xml:2:66: error: character 2 of the template is "x", but must be one of XY.SBCLU
  digitizer: broken.xml was not installed; correct the errors above first
  digitizer: cannot read none.xml: No such file or directory
  digitizer: cannot read .: not a regular file
  digitizer: warned.xml:4:1: error: unknown element "remark" in "device"; known here: ioPort, resolution, reportFormat, buttons, beepString
  digitizer: warned.xml was not installed; correct the errors above first
  [1]
  $ description New >again.xml
  $ digitizer install again.xml
  digitizer: again.xml:1:9: error: the name "New" is already used by DIR/home/DigitizerGeneric/generated/new.xml
  digitizer: again.xml was not installed; correct the errors above first
  [1]
  $ ls home/DigitizerGeneric/generated | grep -v '[0-9]'
  example-pen.xml
  genius-newsketch-mm.xml
  new.xml
  other.xml
  wacom-iis-ascii.xml

A folder that cannot be written.

  $ rm -r home/DigitizerGeneric/generated && echo >home/DigitizerGeneric/generated
  $ digitizer install new.xml
  digitizer: cannot create the folder DIR/home/DigitizerGeneric/generated; a file may have its name, or you may not write there
  digitizer: cannot create the folder DIR/home/DigitizerGeneric/generated; a file may have its name, or you may not write there
  [1]

Wrong arguments.

  $ digitizer install
  digitizer: cannot create the folder DIR/home/DigitizerGeneric/generated; a file may have its name, or you may not write there
  digitizer: FILE is missing (see 'digitizer install --help')
  [2]
  $ digitizer install --fource new.xml
  digitizer: cannot create the folder DIR/home/DigitizerGeneric/generated; a file may have its name, or you may not write there
  digitizer: unknown option --fource; did you mean --force? (see 'digitizer install --help')
  [2]
