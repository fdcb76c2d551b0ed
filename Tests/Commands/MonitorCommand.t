  $ . "$TESTDIR/setup.sh"
  $ mm='Genius NewSketch MM (500 LPI)'
  $ timeless() { sed 's/^ *[0-9][0-9]*\.[0-9]* /TIME /; s/([0-9.]* a second)/(RATE)/' "$@"; }
  $ cat >session <<'END'
  > # digitizer session 1
  > 0 "?,\n1234,0567,2\r\n12"
  > END

Every byte, with its role; Enter and the end show a summary.

  $ mkfifo keys
  $ tablet --replay session --stay
  $ input=keys start monitor digitizer monitor --device "$PWD/tablet" --driver "$mm"
  $ exec 3>keys
  $ await grep '2 bytes passed' monitor
  $ echo >&3
  $ await grep 'passed over' monitor
  $ stop monitor timeless
  TIME  3f 2c 0a                                                    |?,.|
               ?  ?  ?                                                    3 bytes passed over: not the length of a report
  TIME  31 32 33 34 2c 30 35 36 37 2c 32 0d 0a                      |1234,0567,2..|
               X  X  X  X  U  Y  Y  Y  Y  U  B  C  L                      button 2 at 6.2679, 2.8800 cm
  TIME  31 32                                                       |12|
               ?  ?                                                       2 bytes passed over: not the length of a report
  18 bytes, 1 report, 5 bytes passed over; largest x 6.2679 cm, largest y 2.8800 cm
  18 bytes, 1 report, 5 bytes passed over; largest x 6.2679 cm, largest y 2.8800 cm

Without a driver, all settings can be given.

  $ tablet --replay session --stay
  $ start monitor digitizer monitor --device "$PWD/tablet" --baudrate 300 --databit 7 --parity Even --stopbit 2 --flowctrl software
  $ await grep 31.32 monitor
  $ stop monitor timeless
  TIME  3f 2c 0a 31 32 33 34 2c 30 35 36 37 2c 32 0d 0a 31 32       |?,.1234,0567,2..12|
  18 bytes

The port is lost.

  $ tablet --replay session
  $ digitizer monitor --device "$PWD/tablet" --description "$sources/Plugins/digitizer/generated/genius-newsketch-mm.xml" </dev/null >monitor
  digitizer: the port is lost; check the cable and start again
  [1]
  $ timeless monitor
  TIME  3f 2c 0a                                                    |?,.|
               ?  ?  ?                                                    3 bytes passed over: not the length of a report
  TIME  31 32 33 34 2c 30 35 36 37 2c 32 0d 0a                      |1234,0567,2..|
               X  X  X  X  U  Y  Y  Y  Y  U  B  C  L                      button 2 at 6.2679, 2.8800 cm
  TIME  31 32                                                       |12|
               ?  ?                                                       2 bytes passed over: not the length of a report
  18 bytes, 1 report, 5 bytes passed over; largest x 6.2679 cm, largest y 2.8800 cm

Wrong arguments.

  $ digitizer monitor </dev/null
  digitizer: --device is missing; 'digitizer ports' lists the ports
  [2]
  $ for wrong in '--device /nowhere/tty' '--device File:' '--device /dev/null' '--device /tmp'; do
  >     digitizer monitor $wrong </dev/null
  > done
  digitizer: there is no port /nowhere/tty; check the name, and whether the cable is plugged in ('digitizer ports' lists the ports)
  digitizer: --device is 'File:', but a digital pen sends no bytes to a port; give a serial port
  digitizer: /dev/null is not a serial port ('digitizer ports' lists the ports)
  digitizer: /tmp is not a serial port ('digitizer ports' lists the ports)
  [1]
  $ tablet --replay session
  $ for wrong in '--baudrate 9601' '--databit 9' '--parity even' '--stopbit 3' '--flowctrl yes' '--driver x' x; do
  >     digitizer monitor --device "$PWD/tablet" $wrong </dev/null
  > done
  digitizer: --baudrate is '9601', but must be one of 9600, 150, 300, 600, 1200, 2400, 4800, 19200; did you mean 9600?
  digitizer: --databit is '9', but must be one of 8, 7
  digitizer: --parity is 'even', but must be one of None, Odd, Even; did you mean Even?
  digitizer: --stopbit is '3', but must be one of 1, 1.5, 2
  digitizer: --flowctrl is 'yes', but must be one of none, hardware, software
  digitizer: no driver has the name "x" ('digitizer drivers' lists the names)
  digitizer: unexpected argument 'x' (see 'digitizer monitor --help')
  [2]
  $ digitizer monitor --device "$PWD/tablet" --driver "$mm" --parity Odd </dev/null
  digitizer: the description contains the serial settings; leave out --baudrate, --databit, --parity, --stopbit and --flowctrl
  [2]
  $ digitizer monitor --device "$PWD/tablet" --driver "$mm" --description "$mm" </dev/null
  digitizer: --description and --driver cannot be combined
  [2]
