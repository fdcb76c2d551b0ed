  $ . "$TESTDIR/setup.sh"

Help.

  $ digitizer --help
  Usage:
    digitizer COMMAND [OPTIONS]
  
  Takes points from a digitizing tablet on a serial port or from the files of a
  digital pen. An XML description says what the tablet sends. Coordinates are in
  centimetres.
  
  Commands:
    capture                   capture points from a tablet on a serial port
    import                    import the files of a digital pen
    drivers                   list the drivers that are installed
    check                     check whether a tablet or a pen can be used
    ports                     list the serial ports and who may use them
    beep                      make a tablet beep
    monitor                   show every byte that arrives at a serial port
    describe                  propose a description for an unknown tablet
    lint                      find faults in device descriptions
    install                   install device descriptions
    doctor                    print system information to attach to a question
  
  'digitizer COMMAND --help' shows the help of a command.
  $ digitizer check --help
  Usage:
    digitizer check [OPTIONS]
  
  Checks that the driver exists and that the port can be opened. Prints "No Error
  has occurred", or why the device cannot be used and what to do about it. Nothing
  is sent to the tablet, so a tablet that is switched off passes as well.
  
  Options:
    --driver NAME             Use driver NAME; 'digitizer drivers' lists the
                              names.
    --description FILE        Use description FILE instead of an installed driver.
    --device PORT             Use serial port PORT, such as /dev/ttyUSB0, or File:
                              for the digital pen.
    -h, --help                Show this help.
  
  Exit status:
    'check' exits with 0 if the device can be used.
    0                         Success.
    1                         Failure; a message on standard error says why.
    2                         Wrong command line.
  
  Examples:
    digitizer check --driver "Generic 5-5-1 (ASCII)" --device /dev/ttyUSB0
                              Check whether that tablet can be used at that port.
  $ digitizer help
  digitizer: unknown command 'help' (see 'digitizer --help')
  [2]
  $ digitizer capture -h | head -3
  Usage:
    digitizer capture [OPTIONS]
  

Wrong commands and options.

  $ digitizer
  digitizer: a command is missing (see 'digitizer --help')
  [2]
  $ digitizer drvers
  digitizer: unknown command 'drvers'; did you mean drivers? (see 'digitizer --help')
  [2]
  $ digitizer --hlp
  digitizer: unknown option '--hlp' (see 'digitizer --help')
  [2]
  $ digitizer ports x
  digitizer: unexpected argument 'x' (see 'digitizer ports --help')
  [2]
  $ digitizer doctor x
  digitizer: unexpected argument 'x' (see 'digitizer doctor --help')
  [2]
  $ digitizer monitor --devise x
  digitizer: unknown option --devise; did you mean --device? (see 'digitizer monitor --help')
  [2]
  $ tablet_simulator --drver x
  tablet-simulator: unknown option --drver; did you mean --driver? (see 'tablet-simulator --help')
  [2]

The nearest names are suggested.

  $ for name in bitpad 'WACOM ii-s ascii' 'Wacmo II-S' 'Sumagraphics Bit Pad Two CR LF' Microtek ''; do
  >     digitizer check --device /dev/null --driver "$name"
  > done
  digitizer: no driver has the name "bitpad"; did you mean "Summagraphics Bit Pad Two (CR)" or "Summagraphics Bit Pad Two (CR LF)" or "Wacom II-S ASCII (SD-510C, ArtPad)"? ('digitizer drivers' lists the names)
  digitizer: no driver has the name "WACOM ii-s ascii"; did you mean "Wacom II-S ASCII (SD-510C, ArtPad)"? ('digitizer drivers' lists the names)
  digitizer: no driver has the name "Wacmo II-S"; did you mean "Wacom II-S ASCII (SD-510C, ArtPad)"? ('digitizer drivers' lists the names)
  digitizer: no driver has the name "Sumagraphics Bit Pad Two CR LF"; did you mean "Summagraphics Bit Pad Two (CR LF)" or "Summagraphics Bit Pad Two (CR)"? ('digitizer drivers' lists the names)
  digitizer: no driver has the name "Microtek" ('digitizer drivers' lists the names)
  digitizer: --driver is missing; 'digitizer drivers' lists the names
  [2]

The manual pages name every command and option.

  $ digitizer --manual-page >digitizer.1
  $ head -3 digitizer.1
  .TH DIGITIZER 1 "" "digitizer *.*.*" "User Commands" (glob)
  .SH NAME
  digitizer \- take points from digitizing tablets and digital pens
  $ digitizer --help | sed -nE 's/^  ([a-z]+) {3,}.*/\1/p' >commands
  $ paste -sd ' ' commands
  capture import drivers check ports beep monitor describe lint install doctor
  $ for name in $(cat commands); do
  >     grep -q "^\.SS digitizer $name " digitizer.1 || echo "$name is missing"
  >     for option in $(digitizer $name --help | sed -nE 's/^  (--[a-z-]+).*/\1/p' | sed 's/-/\\-/g'); do
  >         sed -n "/^\.SS digitizer $name /,/^\.SS/p" digitizer.1 | grep -qF -e "$option" || echo "$name $option is missing"
  >     done
  > done
  $ tablet_simulator --manual-page | grep -c '\\-\\-'
  20

No command waits for a pipe.

  $ mkfifo pipe
  $ digitizer lint pipe
  digitizer: cannot read pipe: not a regular file
  [1]
  $ digitizer install pipe
  digitizer: cannot read pipe: not a regular file
  [1]
  $ digitizer describe --from pipe
  digitizer: cannot read pipe: not a regular file
  [1]
  $ tablet_simulator --description pipe
  tablet-simulator: pipe cannot be read: not a regular file
  [1]
  $ tablet_simulator --replay pipe
  tablet-simulator: cannot read pipe: not a regular file
  [1]
  $ tablet_simulator --driver 'Lectra E92' --script pipe
  tablet-simulator: cannot read pipe: not a regular file
  [1]
  $ ln -s ../../../pipe home/DigitizerGeneric/generated/pipe.xml
  $ ln -sf ../../../pipe home/DigitizerGeneric/generated/generic-5-5-1.xml
  $ digitizer drivers | grep -c file
  11
  $ digitizer lint "$sources/Examples/descriptions/annotated.xml"
