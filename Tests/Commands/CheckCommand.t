  $ . "$TESTDIR/setup.sh"
  $ description Beeping XXXXYYYYB '<beepString><character>27</character><character>66</character></beepString>' >beeping.xml
  $ digitizer install beeping.xml
  "Beeping" is installed: DIR/home/DigitizerGeneric/generated/beeping.xml
  $ description Broken XxY >home/DigitizerGeneric/generated/broken.xml
  $ tablet --description beeping.xml --stay

A device that can be used.

  $ digitizer check --driver Beeping --device "$PWD/tablet"
  No Error has occurred
  $ description 'Not installed' >other.xml
  $ digitizer check --description other.xml --device "$PWD/tablet"
  No Error has occurred
  $ digitizer check --driver Beeping --device File:
  No Error has occurred

A pen without its directory.

  $ printf '[General]\ndigitizer_file_directory=%s/nowhere\n' "$PWD" >home/DigitizerGeneric/digitizer.conf
  $ digitizer check --driver Beeping --device File:
  digitizer: there is no directory "DIR/nowhere" for pen files; check the setting digitizer_file_directory
  [1]
  $ rm home/DigitizerGeneric/digitizer.conf

The beep arrives at the tablet.

  $ digitizer beep --driver Beeping --device "$PWD/tablet"
  Test for digitizer beep string: "\u001BB"
  $ await grep received simulator.errors
  $ cat simulator.errors
  received "\x1bB"

Drivers that cannot be used.

  $ digitizer check --driver beping --device "$PWD/tablet"
  digitizer: no driver has the name "beping"; did you mean "Beeping"? ('digitizer drivers' lists the names)
  [1]
  $ digitizer check --driver wacom --device File:
  digitizer: no driver has the name "wacom"; did you mean "Wacom II-S ASCII (SD-510C, ArtPad)"? ('digitizer drivers' lists the names)
  [1]
  $ digitizer check --driver Broken --device "$PWD/tablet"
  digitizer: the description DIR/home/DigitizerGeneric/generated/broken.xml has no usable report template: it is for a pen, or it is broken ('digitizer lint' says why)
  [1]
  $ description Wrong XxY >wrong.xml
  $ digitizer check --description wrong.xml --device "$PWD/tablet"
  digitizer: wrong.xml cannot be used: character 2 of the report template is "x", but must be one of BXYU.SCL ('digitizer lint' shows where)
  [1]
  $ digitizer check --description none.xml --device "$PWD/tablet"
  digitizer: none.xml cannot be read: No such file or directory
  [1]
  $ digitizer beep --driver 'Generic 5-5-1 (ASCII)' --device "$PWD/tablet"
  digitizer: the description DIR/home/DigitizerGeneric/generated/generic-5-5-1.xml defines no beep: it has no "beepString" with a "character"
  [1]
  $ digitizer beep --driver beping --device "$PWD/tablet"
  digitizer: no driver has the name "beping"; did you mean "Beeping"? ('digitizer drivers' lists the names)
  [1]

Ports that cannot be used.

  $ for command in check beep; do
  >     for port in /dev/ttyNONE /dev/null "$PWD"; do
  >         digitizer $command --driver Beeping --device $port
  >     done
  > done
  digitizer: there is no port /dev/ttyNONE; check the name, and whether the cable is plugged in ('digitizer ports' lists the ports)
  digitizer: /dev/null is not a serial port ('digitizer ports' lists the ports)
  digitizer: DIR is not a serial port ('digitizer ports' lists the ports)
  digitizer: there is no port /dev/ttyNONE; check the name, and whether the cable is plugged in ('digitizer ports' lists the ports)
  digitizer: /dev/null is not a serial port ('digitizer ports' lists the ports)
  digitizer: DIR is not a serial port ('digitizer ports' lists the ports)
  [1]
  $ digitizer beep --driver Beeping --device File:
  digitizer: --device is File:, but a digital pen cannot beep; give a serial port
  [2]

A port that another program has open; only one may read.

  $ start capture digitizer capture --driver Beeping --device "$PWD/tablet"
  $ await grep ready capture.errors
  $ digitizer check --driver Beeping --device "$PWD/tablet" 2>&1 | grep -o '^.*in use by\|digitizer (PID)'
  digitizer: another program has DIR/tablet open; close that program first; in use by
  digitizer (PID)
  $ digitizer capture --driver Beeping --device "$PWD/tablet"
  digitizer: another program has DIR/tablet open; close that program first
  [1]
  $ digitizer monitor --device "$PWD/tablet" </dev/null
  digitizer: another program has DIR/tablet open; close that program first
  [1]
  $ stop capture >/dev/null
  digitizer: ready: "Beeping" at DIR/tablet; press Ctrl-C to stop

Wrong arguments.

  $ digitizer check --device "$PWD/tablet"
  digitizer: --driver is missing; 'digitizer drivers' lists the names
  [2]
  $ digitizer check --driver Beeping
  digitizer: --device is missing; 'digitizer ports' lists the ports
  [2]
  $ digitizer check --driver Beeping --device ''
  digitizer: --device is missing; 'digitizer ports' lists the ports
  [2]
  $ digitizer check --device "$PWD/tablet" --description beeping.xml --driver Beeping
  digitizer: --description and --driver cannot be combined
  [2]
  $ digitizer beep --device "$PWD/tablet"
  digitizer: --driver is missing; 'digitizer drivers' lists the names
  [2]
  $ digitizer beep --driver Beeping
  digitizer: --device is missing; 'digitizer ports' lists the ports
  [2]
