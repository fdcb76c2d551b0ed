  $ . "$TESTDIR/setup.sh"
  $ generic='Generic 5-5-1 (ASCII)'
  $ printf '%s\n' '# three points' '1 2 1' '3 4.5 2' '6 7 4' >points
  $ capture() { digitizer capture --driver "$generic" --device "$folder/tablet" --no-reconnect --format csv "$@" 2>/dev/null; }

The built-in piece, for four buttons and for sixteen.

  $ tablet --driver "$generic"
  $ capture
  number,x_cm,y_cm,button,kind
  1,3.999999999999938,3.4996825396824853,1,corner
  2,3.999999999999938,36.20063492063436,1,corner
  3,6.100317460317365,36.40126984126927,2,curve
  4,8.200634920634792,37.201269841269266,2,curve
  5,9.899682539682384,38.80126984126923,2,curve
  6,10.801269841269672,41.000634920634276,2,curve
  7,11.199999999999825,43.60126984126916,1,corner
  8,23.199999999999637,39.40063492063431,1,corner
  9,22.001269841269497,36.29968253968197,2,curve
  10,21.20126984126951,33.000634920634404,2,curve
  11,21.300317460317128,26.999365079364658,2,curve
  12,22.801269841269484,24.89904761904723,2,curve
  13,25.201269841269447,23.900952380952006,2,curve
  14,27.60126984126941,23.601269841269474,1,corner
  15,26.19936507936467,2.999365079365033,1,corner
  16,17.599999999999724,3.19999999999995,1,corner
  17,15.900952380952132,17.39936507936481,1,corner
  18,13.800634920634705,3.4006349206348676,1,corner
  19,15.799365079364833,19.1999999999997,3,hole
  20,3.999999999999938,3.4996825396824853,4,end
  21,2.2250738585072014e-308,2.2250738585072014e-308,5,closing
  [1]
  $ ended simulator
  DIR/tablet
  $ ls -d tablet
  ls: cannot access 'tablet': No such file or directory
  [2]
  $ tablet --driver 'CalComp 2000 ASCII (5 digits, 16 buttons)'
  $ digitizer capture --driver 'CalComp 2000 ASCII (5 digits, 16 buttons)' --device "$PWD/tablet" --no-reconnect --format csv 2>/dev/null | grep notch
  11,20.89904761904729,29.800634920634458,5,notch
  16,26.999365079364658,14.001269841269623,5,notch

--repeat sends it again and again.

  $ tablet --driver "$generic" --script points --repeat 3
  $ capture | cut -d, -f2,4
  x_cm,button
  1.000634920634905,1
  2.999365079365033,2
  6.001269841269747,4
  1.000634920634905,1
  2.999365079365033,2
  6.001269841269747,4
  1.000634920634905,1
  2.999365079365033,2
  6.001269841269747,4
  2.2250738585072014e-308,5

--rate is the number of reports in a second: five of them take 400 milliseconds at 10 a second.

  $ tablet --driver "$generic" --script points --repeat 2 --rate 10
  $ capture --record rate.log >/dev/null
  [1]
  $ sed -n 's/^\([0-9][0-9]*\) ".*/\1/p' rate.log | awk 'NR > 1 { if ($1 - last < 90) print "only", $1 - last, "ms" } { last = $1 } END { print NR }'
  6

Faults: reports in pieces, merged, among noise, and a pulled cable.

  $ for fault in '--split 3' '--merge 2' '--garbage --seed 7' '--hangup-after 2' '--hangup-after 0'; do
  >     tablet --driver "$generic" --script points --fast $fault
  >     start monitor digitizer monitor --device "$PWD/tablet"
  >     echo "$fault"; ended monitor sed -n 's/^.*  |\(.*\)|$/\1/p' 2>/dev/null
  > done
  --split 3
  003
  94,00788,1..
  011
  81,01772,2..
  023
  63,02756,8..
  --merge 2
  ,01772,2..
  02363,02756,8..
  --garbage --seed 7
  ...C
  00394,00788,1..
  .g\.
  01181,01772,2..
  .HY
  02363,02756,8..
  --hangup-after 2
  00394,00788,1..
  01181,01772,2..
  --hangup-after 0
  [1]

A session is sent with its own times, and faster with --rate.

  $ bytes() { sed -n 's/^.*|\(.*\)|$/\1/p' | tr -d '\n'; echo; }
  $ printf '# digitizer session 1\n%s\n' '0 "a"' '1000 "b"' >session
  $ tablet --replay session
  $ digitizer monitor --device "$PWD/tablet" </dev/null >monitor 2>/dev/null
  [1]
  $ bytes <monitor; sed -n 's/^ *\([0-9.]*\) .*|$/\1/p' monitor | paste -sd ' ' | awk '{ print ($2 - $1 > 0.9) }'
  ab
  1
  $ printf '# digitizer session 1\n%s\n' '0 "a"' '100000 "b"' >session
  $ for pace in '--rate 100' --fast --flood; do
  >     tablet --replay session $pace
  >     digitizer monitor --device "$PWD/tablet" </dev/null 2>/dev/null | bytes
  > done
  ab
  ab
  ab

Each report waits until the host has taken the one before it: after a look whether the port is there, and after an
opening that discards what has arrived.

  $ report() { sleep 0.05; timeout 10 dd bs=4096 count=1 status=none <&4 | tr '\r\n' '<>'; echo; }
  $ printf '%s\n' '4 3.5 2' '4 36.2 2' '6.1 36.4 3' >places
  $ tablet --driver 'Lectra E92' --script places --fast --stay --delay 1000
  $ exec 4<>tablet 4<&-
  $ sleep 1.2
  $ exec 4<>tablet
  $ python3 -c 'import termios; termios.tcflush(4, termios.TCIFLUSH)'
  $ sleep 1
  $ for i in 1 2 3; do report; done
  00000031 0   400    350<>
  00000031 0   400   3620<>
  00000032 0   610   3640<>
  $ printf '\033  beep' >&4
  $ await grep beep simulator.errors
  $ stop simulator
  DIR/tablet
  received "\x1b  beep"
  $ exec 4<&-
  $ ls -d tablet
  ls: cannot access 'tablet': No such file or directory
  [2]

The port is hung up when the host has read everything, however long it was busy.

  $ tablet --driver 'Lectra E92' --script places --hangup-after 1
  $ exec 4<>tablet
  $ sleep 1.5
  $ report
  00000031 0   400    350<>
  $ exec 4<&-
  $ ended simulator
  DIR/tablet

A flood, which is far more than the system keeps, waits for room and arrives whole. Discarding makes room, too.

  $ tablet --driver 'Lectra E92' --script places --flood --repeat 3000
  $ exec 4<>tablet
  $ timeout 20 dd bs=1 status=none <&4 >arrived 2>/dev/null
  [1]
  $ ended simulator
  DIR/tablet
  $ paste -d '|' - - - <arrived | tr '\r' '<' | uniq -c
     3000 00000031 0   400    350<|00000031 0   400   3620<|00000032 0   610   3640<
  $ tablet --driver 'Lectra E92' --script places --flood --repeat 7000
  $ exec 4<>tablet
  $ timeout 20 python3 -c 'import os, termios
  > while os.path.islink("tablet"): termios.tcflush(4, termios.TCIFLUSH)'
  $ ended simulator
  DIR/tablet

The simulator ends with status 1 when it is stopped too early, and removes its link.

  $ tablet --driver "$generic"
  $ stop simulator
  DIR/tablet
  [1]
  $ ls -d tablet
  ls: cannot access 'tablet': No such file or directory
  [2]

What cannot be sent, and wrong arguments.

  $ echo '1 2 0' >wrong; echo '# nothing' >empty; printf '1 2 1\n1 2\n' >short; echo '999 2 1' >far
  $ for file in wrong empty short far none .; do
  >     tablet_simulator --driver "$generic" --script $file
  > done
  tablet-simulator: the point (1, 2): there is no button 0; the description has buttons 1 to 4
  tablet-simulator: nothing to send
  tablet-simulator: short: line 2: '1 2' must be x and y in centimetres and a button number, such as 12.5 30 1
  tablet-simulator: the point (999, 2): the template has 5 digits for x, enough for at most 253.966 cm
  tablet-simulator: cannot read none: No such file or directory
  tablet-simulator: cannot read .: not a regular file
  [1]
  $ tablet_simulator --driver 'Lectra E92' --script points
  tablet-simulator: the point (1, 2): there is no button 1; this tablet has buttons 2 to 5
  [1]
  $ tablet_simulator --replay points
  tablet-simulator: points: line 1: a recorded session must begin with "# digitizer session 1"
  [1]
  $ tablet_simulator --replay none
  tablet-simulator: cannot read none: No such file or directory
  [1]
  $ tablet_simulator --driver "$generic" --link points
  tablet-simulator: --link: points already exists and is not a symbolic link; choose another path
  [1]
  $ head -1 points
  # three points
  $ tablet_simulator --driver "$generic" --link /nowhere/tablet
  tablet-simulator: cannot create the link /nowhere/tablet: No such file or directory
  [1]
  $ tablet_simulator
  tablet-simulator: --driver is missing; 'digitizer drivers' lists the names
  [2]
  $ tablet_simulator --driver generic
  tablet-simulator: no driver has the name "generic"; did you mean "Generic 5-5-1 (ASCII)"? ('digitizer drivers' lists the names)
  [1]
  $ tablet_simulator --description points
  tablet-simulator: points is not well-formed: Start tag expected. ('digitizer lint' shows where)
  [1]
  $ for wrong in '--split 15' '--split 0' '--merge 1' '--rate 0' '--rate 10001' '--repeat 0' '--delay 60001' '--seed -1' \
  >              '--fast --rate 9' '--fast --flood' '--flood --rate 9' '--hangup-after 1 --stay' '--replay points' x; do
  >     tablet_simulator --driver "$generic" $wrong; echo "[$?]"
  > done
  tablet-simulator: --split is '15', but must be less than 15, the length of the longest write
  [2]
  tablet-simulator: --split is '0', but must be a number from 1 to 511
  [2]
  tablet-simulator: --merge is '1', but must be a number from 2 to 1000
  [2]
  tablet-simulator: --rate is '0', but must be a number from 1 to 10000
  [2]
  tablet-simulator: --rate is '10001', but must be a number from 1 to 10000
  [2]
  tablet-simulator: --repeat is '0', but must be a number from 1 to 1000000
  [2]
  tablet-simulator: --delay is '60001', but must be a number from 0 to 60000
  [2]
  tablet-simulator: --seed is '-1', but must be a number from 0 to 2147483647
  [2]
  tablet-simulator: --fast and --rate cannot be combined
  [2]
  tablet-simulator: --fast and --flood cannot be combined
  [2]
  tablet-simulator: --flood and --rate cannot be combined
  [2]
  tablet-simulator: --hangup-after and --stay cannot be combined
  [2]
  tablet-simulator: --replay and --driver cannot be combined
  [2]
  tablet-simulator: unexpected argument 'x' (see 'tablet-simulator --help')
  [2]
  $ tablet_simulator --driver "$generic" --description points
  tablet-simulator: --description and --driver cannot be combined
  [2]
  $ tablet_simulator --replay session --description points
  tablet-simulator: --replay and --description cannot be combined
  [2]
  $ tablet_simulator --replay session --script points
  tablet-simulator: --replay and --script cannot be combined
  [2]
