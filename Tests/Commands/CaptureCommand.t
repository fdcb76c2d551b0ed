  $ . "$TESTDIR/setup.sh"
  $ uiof='Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)'
  $ cat >points <<END
  > 0       0       1 # corner
  > 2.5397  1.2698  2
  > 5.0794  5.0794  0
  > END
  $ capture() { digitizer capture --device "$folder/tablet" --driver "$uiof" "$@"; }

Each format. The numbers are exact in csv and json; the last line is the library's closing report.

  $ tablet --driver "$uiof" --script points
  $ capture --count 3
  number     x (cm)     y (cm)  button  kind
       1     0.0000     0.0000       1  corner
       2     2.5397     1.2698       2  curve
       3     5.0794     5.0794       0  other
       4          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  $ tablet --driver "$uiof" --script points
  $ digitizer capture --device "$PWD/tablet" --description "$sources/Plugins/digitizer/generated/summagraphics-uiof16.xml" --count 3 --format csv --buttons 1=notch,0=hole,2=end
  number,x_cm,y_cm,button,kind
  1,0,0,1,notch
  2,2.5396825396825,1.26984126984125,2,end
  3,5.079365079365,5.079365079365,0,hole
  4,2.2250738585072014e-308,2.2250738585072014e-308,14,closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  $ tablet --driver "$uiof" --script points
  $ capture --count 3 --format json
  {"button":1,"kind":"corner","number":1,"x":0,"y":0}
  {"button":2,"kind":"curve","number":2,"x":2.5396825396825,"y":1.26984126984125}
  {"button":0,"kind":"other","number":3,"x":5.079365079365,"y":5.079365079365}
  {"button":14,"kind":"closing","number":4,"x":2.2250738585072014e-308,"y":2.2250738585072014e-308}
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop

Bytes that are not a report are passed over and shown; with --strict-count, reading stops.

  $ sends() {
  >     printf '# digitizer session 1\n0 "%s"\n' "$1" >session
  >     shift
  >     tablet --replay session --stay
  >     start capture digitizer capture --driver "$uiof" --device "$PWD/tablet" "$@"
  > }
  $ sends '00001,00001,2\r\n00002,00002,2\r\n'
  $ await grep '^ *2 ' capture && stop capture
  number     x (cm)     y (cm)  button  kind
       1     0.0025     0.0025       1  corner
       2     0.0051     0.0051       1  corner
       3          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  $ sends '0?001,00001,2\r\n00001,00001,2\r\n00002,00002,2\r\n'
  $ await grep '^ *2 ' capture && stop capture
  number     x (cm)     y (cm)  button  kind
       1     0.0025     0.0025       1  corner
       2     0.0051     0.0051       1  corner
       3          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  digitizer: passed over "0?001,00001,2\r\n", which is not a report; if a point is missing, press the button again; 'digitizer monitor' shows what arrives
  $ sends '?\r\n00001,00001,2\r\n??\r\n'
  $ await grep 4.more capture.errors && stop capture
  number     x (cm)     y (cm)  button  kind
       1     0.0025     0.0025       1  corner
       2          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  digitizer: passed over "?\r\n", which is not a report; if a point is missing, press the button again; 'digitizer monitor' shows what arrives
  digitizer: 4 more bytes were passed over
  $ sends '00001,00001,2\r\n00002,00002,2\r\n' --strict-count
  $ await grep length capture.errors && stop capture
  number     x (cm)     y (cm)  button  kind
       1          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  digitizer: reading has stopped: the bytes waiting are not exactly one report (length 15); press Ctrl-C and start again while the tablet is idle; if it happens again, look at the input with 'digitizer monitor'
  $ sends '0 001,00001,2\r\n' --strict-count
  $ await grep '^ *1 ' capture && stop capture
  number     x (cm)     y (cm)  button  kind
       1   -40.6324     0.0025       1  corner
       2          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop

Every way to stop closes the device.

  $ for signal in INT TERM HUP; do
  >     tablet --driver "$uiof" --script points --stay
  >     start capture digitizer capture --driver "$uiof" --device "$PWD/tablet"
  >     await grep -q '^ *3 ' capture
  >     signal capture $signal; ended capture tail -2
  > done
       3     5.0794     5.0794       0  other
       4          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
       3     5.0794     5.0794       0  other
       4          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
       3     5.0794     5.0794       0  other
       4          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop

A session is recorded as it arrived, and can be sent again.

  $ tablet --driver "$uiof" --script points --fast
  $ capture --count 3 --record session.log --format csv >first
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  $ sed 's/^[0-9][0-9]* "/TIME "/; s/^# date.*/# date: DATE/' session.log
  # digitizer session 1
  # tablet: Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)
  # driver: Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)
  # settings: 9600 8 None 1
  # date: DATE
  TIME "00000,00000,2\r\n"
  TIME "01000,00500,3\r\n"
  TIME "02000,02000,1\r\n"
  $ tablet --replay session.log
  $ capture --count 3 --format csv 2>/dev/null >second
  $ cmp first second
  $ capture --record session.log
  digitizer: --record: session.log already exists and is not overwritten; choose another name
  [1]

Pictures.

  $ printf '%s\n' '0 0 1' '10 0 1' '10 10 2' '5 5 3' '0 10 1' '0 5 5' '10 5 4' '20 20 1' '24 22 2' >piece
  $ for picture in piece.svg piece.PNG; do
  >     tablet --driver "$uiof" --script piece
  >     capture --count 9 --picture $picture | tail -1
  > done
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
      10          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
      10          -          -      14  closing
  $ grep -o 'viewBox=.*\|matrix(100[^)]*\|<g fill="[^"]*\|dasharray="[^"]*\|<\(path\|rect\|circle\|polyline\).*\|[^>]*</text' piece.svg |
  >     sed 's/ \(fill\|vector-effect\|fill-rule\)="[a-z]*"//g' | awk '!seen[$0]++'
  viewBox="0 0 2860 2920"
  <g fill="none
  <g fill="#ffffff
  matrix(100,0,0,-100,230,2440
  <rect x="-2.3" y="-4.8" width="28.6" height="29.2"/>
  <g fill="#f3ead9
  <path d="M0,0 L10.0013,0 C10.8347,4.1672 11.6681,8.33439 10.0013,10.0013 C8.33439,11.6681 4.1672,10.8347 0,10.0013 L0,5.00063 L0,0"/>
  <polyline points="0,5.00063 0.8,5.00063 " />
  <circle cx="5.00063" cy="5.00063" r="0.4"/>
  <polyline points="4.40063,5.00063 5.60063,5.00063 " />
  <polyline points="5.00063,4.40063 5.00063,5.60063 " />
  <g fill="#202020
  <rect x="-0.15" y="-0.15" width="0.3" height="0.3"/>
  <rect x="9.85127" y="-0.15" width="0.3" height="0.3"/>
  <rect x="-0.15" y="9.85127" width="0.3" height="0.3"/>
  1</text
  dasharray="4,2
  <path d="M20,20 C21.3333,20.6671 22.6667,21.3342 24,22.0013 "/>
  <rect x="19.85" y="19.85" width="0.3" height="0.3"/>
  2 (unfinished)</text
  <rect x="-0.3" y="-2.8" width="1" height="0.3"/>
  <rect x="0.7" y="-2.8" width="1" height="0.3"/>
  <rect x="1.7" y="-2.8" width="1" height="0.3"/>
  <rect x="2.7" y="-2.8" width="1" height="0.3"/>
  <rect x="3.7" y="-2.8" width="1" height="0.3"/>
  <rect x="4.7" y="-2.8" width="1" height="0.3"/>
  <rect x="5.7" y="-2.8" width="1" height="0.3"/>
  <rect x="6.7" y="-2.8" width="1" height="0.3"/>
  <rect x="7.7" y="-2.8" width="1" height="0.3"/>
  <rect x="8.7" y="-2.8" width="1" height="0.3"/>
  10 cm</text
  $ head -c 4 piece.PNG | od -c | head -1
  0000000 211   P   N   G

The output cannot be written.

  $ tablet --driver "$uiof" --script points
  $ command digitizer capture --driver "$uiof" --device "$PWD/tablet" --picture full.svg >/dev/full 2>errors
  [1]
  $ plain errors
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  digitizer: cannot write to standard output
  digitizer: nothing was traced, so full.svg was not written
  $ tablet --driver "$uiof" --script points
  $ capture --count 3 --picture /dev/full/a.svg
  digitizer: --picture: there is no folder /dev/full
  [1]

A tablet that is not there, and one that goes away.

  $ capture --device /nowhere/tty
  digitizer: there is no port /nowhere/tty; check the name, and whether the cable is plugged in ('digitizer ports' lists the ports)
  [1]
  $ capture --device /tmp
  digitizer: /tmp is not a serial port ('digitizer ports' lists the ports)
  [1]
  $ capture --device null
  digitizer: /dev/null is not a serial port ('digitizer ports' lists the ports)
  [1]
  $ tablet --driver "$uiof" --script points --hangup-after 2
  $ capture --no-reconnect --picture gone.svg --record gone.log
  number     x (cm)     y (cm)  button  kind
       1     0.0000     0.0000       1  corner
       2     2.5397     1.2698       2  curve
       3          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  digitizer: DIR/tablet is gone; the tablet or its adapter was unplugged
  [1]
  $ grep -o '[^>]*(unfinished)' gone.svg
  1 (unfinished)

The command waits for the tablet to come back. A report that had arrived only in part is dropped. With
a recording it is the same.

  $ : >said
  $ for record in '' '--record back.log'; do
  >     printf '# digitizer session 1\n0 "00000,00000,2\\r\\n0400"\n' >session
  >     tablet --replay session
  >     start capture digitizer capture --device "$PWD/tablet" --driver "$uiof" --buttons 1=corner,3=end --picture back.svg $record
  >     await grep 'gone; waiting' capture.errors
  >     printf '%s\n' '5 5 1' '9 9 3' '5 5 1' >points
  >     tablet --driver "$uiof" --script points --hangup-after 3
  >     await sh -c '[ $(grep -c "gone; waiting" capture.errors) = 2 ]'
  >     mv said said.before
  >     kill -INT $capture; { ended capture; echo "[$?]"; grep -o '<path \|[^>]*(unfinished)' back.svg; } >said 2>&1
  > done
  $ cat said; diff said.before said
  number     x (cm)     y (cm)  button  kind
       1     0.0000     0.0000       1  corner
       2     5.0006     5.0006       1  corner
       3     9.0006     9.0006       3  end
       4     5.0006     5.0006       1  corner
       5          -          -      14  closing
  digitizer: ready: "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)" at DIR/tablet; press Ctrl-C to stop
  digitizer: passed over "0400", which is not a report; if a point is missing, press the button again; 'digitizer monitor' shows what arrives
  digitizer: DIR/tablet is gone; waiting for it to come back (press Ctrl-C to stop)
  digitizer: DIR/tablet is back
  digitizer: DIR/tablet is gone; waiting for it to come back (press Ctrl-C to stop)
  digitizer: DIR/tablet did not come back
  [1]
  <path 
  <path 
  2 (unfinished)

Wrong arguments.

  $ digitizer capture --device "$PWD/tablet"
  digitizer: --driver is missing; 'digitizer drivers' lists the names
  [2]
  $ digitizer capture --device "$PWD/tablet" --driver 'bitpad two cr lf'
  digitizer: no driver has the name "bitpad two cr lf"; did you mean "Summagraphics Bit Pad Two (CR LF)" or "Summagraphics Bit Pad Two (CR)"? ('digitizer drivers' lists the names)
  [1]
  $ digitizer capture --driver "$uiof"
  digitizer: --device is missing; 'digitizer ports' lists the ports
  [2]
  $ for wrong in '--device File:' '--count 0' '--count 3x' '--buttons 1=corner,2=curv' '--buttons 1=corner,2' \
  >              '--buttons 1=corner,1=hole' '--picture a.jpg' '--picture /nowhere/a.svg' '--format tex' x; do
  >     capture $wrong; echo "[$?]"
  > done
  digitizer: --device is File:, which is the digital pen; use 'digitizer import'
  [2]
  digitizer: --count is '0', but must be a number from 1 to 2147483647
  [2]
  digitizer: --count is '3x', but must be a number from 1 to 2147483647
  [2]
  digitizer: --buttons contains '2=curv', but a meaning must be one of corner, curve, hole, end, notch; did you mean curve?
  [2]
  digitizer: --buttons contains '2', but each entry must be BUTTON=MEANING, such as 1=corner
  [2]
  digitizer: --buttons names button 1 twice
  [2]
  digitizer: --picture is 'a.jpg', but must end in .svg or .png
  [2]
  digitizer: --picture: there is no folder /nowhere
  [1]
  digitizer: --format is 'tex', but must be one of text, csv, json; did you mean text?
  [2]
  digitizer: unexpected argument 'x' (see 'digitizer capture --help')
  [2]
  $ tablet --driver "$uiof" --script points
  $ capture --record /nowhere/a.log
  digitizer: cannot record to /nowhere/a.log: No such file or directory
  [1]
