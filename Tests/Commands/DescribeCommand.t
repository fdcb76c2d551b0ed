  $ . "$TESTDIR/setup.sh"

The presses of a recording become a description.

  $ session() {
  >     printf '# digitizer session 1\n# tablet: Old table\n# settings: 9600 7 Even 2\n'
  >     time=0
  >     for press in "$@"; do printf '%d "%s"\n' $time "$press"; time=$((time + 1000)); done
  > }
  $ session '0200,0200,1\r' '3200,0201,1\r' '0201,3201,1\r' '1522,1713,1\r' '1523,1714,2\r' '1523,1713,4\r' >new.log
  $ digitizer describe --from new.log --distance 30
  <?xml version="1.0" encoding="UTF-8"?>
  <!--
  Proposed by "digitizer describe" from 6 presses of 3 buttons.
  
  Example report: "0200,0200,1\r"
  
  Comments marked "Not sure" say what to check in the element below them.
  -->
  <digitizer name="Old table" support="untested">
    <!-- Not sure: the bytes read with these settings are text, but bytes do not show parity, stop bits or flow control. Compare with the tablet's switches or manual. -->
    <ioPort>
      <serial baudrate="9600" databit="7" parity="Even" stopbit="2" flowctrl="none"/>
    </ioPort>
    <!-- Not sure: 3000 counts in 30 cm are 254.0 lines per inch; 10 LPMM is the nearest usual resolution. -->
    <resolution unit="LPMM">10</resolution>
    <reportFormat length="12">XXXXUYYYYUBC</reportFormat>
    <!-- Not sure: buttons without a known code: 4. Each has a placeholder, a character that no button sends. -->
    <buttons count="4" length="1">
      <button>1</button>
      <button>2</button>
      <button>4</button>
      <button>!</button>
    </buttons>
  </digitizer>
  $ digitizer describe --from new.log --distance 30 --name 'My <table>' --parity None --output new.xml
  $ digitizer lint new.xml
  $ grep 'name=\|serial' new.xml
  <digitizer name="My &lt;table&gt;" support="untested">
      <serial baudrate="9600" databit="7" parity="None" stopbit="2" flowctrl="none"/>

The user is guided through the presses of a tablet: a press may be repeated, and Enter ends them as soon
as there are enough.

  $ printf '# digitizer session 1\n%s\n' '0 "0200,"' '50 "0200,1\r"' '1000 "9999,9999,8\r"' '4000 "3200,0201,1\r"' \
  >     '5000 "0201,3201,1\r"' '6000 "1522,1713,1\r"' '7000 "1523,1714,2\r"' '8000 "1523,1713,4\r"' >tablet.log
  $ mkfifo keys
  $ tablet --replay tablet.log --stay
  $ input=keys start guided digitizer describe --device "$PWD/tablet" --name 'Old table' --distance 30 --output guided.xml --record guided.log
  $ exec 3>keys
  $ await grep '^3' guided.errors
  $ echo >&3; echo r >&3
  $ await grep '^7' guided.errors
  $ echo no >&3; echo >&3
  $ ended guided
  To repeat the last press, type r and Enter. To stop, press Ctrl-C.
  1. Press button 1 near the lower left corner and mark that point on the tablet.
     12 bytes: "0200,0200,1\r"
  2. Press button 1 exactly 30 cm to the right of the mark, at the same height.
     12 bytes: "9999,9999,8\r"
  3. Press button 1 exactly 30 cm straight above the mark.
  3. Press button 1 exactly 30 cm straight above the mark.
  2. Press button 1 exactly 30 cm to the right of the mark, at the same height.
     12 bytes: "3200,0201,1\r"
  3. Press button 1 exactly 30 cm straight above the mark.
     12 bytes: "0201,3201,1\r"
  4. Press button 1 near the middle and leave the cursor there.
     12 bytes: "1522,1713,1\r"
  5. Without moving the cursor, press button 2.
     12 bytes: "1523,1714,2\r"
  6. Without moving the cursor, press button 3. If there is no such button, press Enter.
     12 bytes: "1523,1713,4\r"
  7. Without moving the cursor, press button 4. If there is no such button, press Enter.
  7. Without moving the cursor, press button 4. If there is no such button, press Enter.
  $ digitizer describe --from guided.log --distance 30 | diff - guided.xml
  $ digitizer describe --from new.log --distance 30 --baudrate 9600 --databit 8 --parity None --stopbit 1 | diff - guided.xml

Without a distance there is no resolution; the installed drivers have other names.

  $ digitizer describe --from new.log --name 'Generic 5-5-1 (ASCII)' >unscaled.xml
  digitizer: proposal:9:12: error: the name "Generic 5-5-1 (ASCII)" is already used by DIR/home/DigitizerGeneric/generated/generic-5-5-1.xml
  $ sed -n '14,15p' unscaled.xml
    <!-- Not sure: no distance was given, so 1000 is only a placeholder. Until it is corrected, all lengths are wrong by the same factor. -->
    <resolution unit="LPI">1000</resolution>

Recordings that no template can express.

  $ session '12\r' '92\r' '19\r' '55\r' '56\r' >short.log
  $ digitizer describe --from short.log
  digitizer: a report of 3 characters is too short for x, y and a button
  [1]
  $ session '0200,0200,1\r' '3200,0201,1\r' >few.log
  $ digitizer describe --from few.log
  digitizer: found 2 presses, separated by pauses of at least 400 milliseconds; expected 5 to 19: button 1 at four points, then every other button once
  [1]
  $ session '0200,0200,1\r' '3200,0201,1\r' '0201,3201,1\r' '1522,1713,1\r' '1523,1714,1\r' >one.log
  $ digitizer describe --from one.log
  digitizer: no character tells the buttons apart; each button must send a different code
  [1]
  $ digitizer describe --from new.xml
  digitizer: new.xml: line 1: a recorded session must begin with "# digitizer session 1"
  [1]

The output cannot be written.

  $ command digitizer describe --from new.log >/dev/full
  [1]
  $ digitizer describe --from new.log --output /nowhere/new.xml
  digitizer: cannot write to /nowhere/new.xml: No such file or directory
  [1]

The port is lost, and the user stops.

  $ tablet --replay new.log --hangup-after 0
  $ digitizer describe --device "$PWD/tablet" </dev/null 2>errors
  [1]
  $ cat errors
  To repeat the last press, type r and Enter. To stop, press Ctrl-C.
  1. Press button 1 near the lower left corner and mark that point on the tablet.
  digitizer: the port is lost; check the cable and start again
  $ tablet --replay new.log --stay --rate 1
  $ start describe digitizer describe --device "$PWD/tablet"
  $ await grep '^2' describe.errors
  $ stop describe 2>errors
  [1]
  $ tail -1 errors
  digitizer: stopped; nothing was written

Wrong arguments.

  $ digitizer describe </dev/null
  digitizer: --device is missing; 'digitizer ports' lists the ports
  [2]
  $ for wrong in '--device /dev/null' '--distance 0' '--distance 1001' '--distance x' '--device x --from new.log' \
  >              '--from new.log --record x' '--from none.log' '--from .' '--from new.log --output new.xml' \
  >              '--device x --record new.log' '--baudrate 1' x; do
  >     digitizer describe $wrong </dev/null; echo "[$?]"
  > done
  digitizer: /dev/null is not a serial port ('digitizer ports' lists the ports)
  [1]
  digitizer: --distance is '0', but must be a number of centimetres from 1 to 1000
  [2]
  digitizer: --distance is '1001', but must be a number of centimetres from 1 to 1000
  [2]
  digitizer: --distance is 'x', but must be a number of centimetres from 1 to 1000
  [2]
  digitizer: --from cannot be combined with --device or --record
  [2]
  digitizer: --from cannot be combined with --device or --record
  [2]
  digitizer: cannot read none.log: No such file or directory
  [1]
  digitizer: cannot read .: not a regular file
  [1]
  digitizer: --output: new.xml already exists and is not overwritten; choose another name
  [1]
  digitizer: --record: new.log already exists and is not overwritten; choose another name
  [1]
  digitizer: --baudrate is '1', but must be one of 9600, 150, 300, 600, 1200, 2400, 4800, 19200
  [2]
  digitizer: unexpected argument 'x' (see 'digitizer describe --help')
  [2]
