  $ . "$TESTDIR/setup.sh"

The shipped descriptions are installed at the first start.

  $ digitizer drivers
  CalComp 2000 ASCII (5 digits, 16 buttons)
    file        DIR/home/DigitizerGeneric/generated/calcomp-2000-ascii.xml
    settings    9600 8 None 1
    resolution  1000 LPI
    layout      XXXXXUYYYYYUBCL
    buttons     1 2 3 4 5 6 7 8 9 : ; < = > ? @
    support     documented
  
  CalComp 2000 ASCII (6 digits, 16 buttons)
    file        DIR/home/DigitizerGeneric/generated/calcomp-2000-ascii-6digit.xml
    settings    9600 8 None 1
    resolution  2540 LPI
    layout      XXXXXXUYYYYYYUBCL
    buttons     1 2 3 4 5 6 7 8 9 : ; < = > ? @
    support     documented
  
  CalComp DrawingBoard III (preset Save 3)
    file        DIR/home/DigitizerGeneric/generated/calcomp-drawingboard3-preset3.xml
    settings    9600 7 Even 1
    resolution  200 LPI
    layout      XXXXXUYYYYYUBC
    buttons     1 2 4 8
    support     documented
  
  Generic 5-5-1 (ASCII)
    file        DIR/home/DigitizerGeneric/generated/generic-5-5-1.xml
    settings    9600 8 None 1
    resolution  1000 LPI
    layout      XXXXXUYYYYYUBCL
    buttons     1 2 4 8
    support     untested
  
  Genius NewSketch MM (1000 LPI)
    file        DIR/home/DigitizerGeneric/generated/genius-newsketch-mm-1000.xml
    settings    9600 8 Odd 1
    resolution  1000 LPI
    layout      XXXXXUYYYYYUBCL
    buttons     1 2 3 4
    support     documented
  
  Genius NewSketch MM (500 LPI)
    file        DIR/home/DigitizerGeneric/generated/genius-newsketch-mm.xml
    settings    9600 8 Odd 1
    resolution  500 LPI
    layout      XXXXUYYYYUBCL
    buttons     1 2 3 4
    support     documented
  
  Genius NewSketch UIOF (16 buttons)
    file        DIR/home/DigitizerGeneric/generated/genius-newsketch-uiof16.xml
    settings    9600 8 Odd 1
    resolution  1000 LPI
    layout      XXXXXUYYYYYUBCL
    buttons     1 2 3 4 5 6 7 8 9 A B C D E F G
    support     documented
  
  Summagraphics Bit Pad Two (CR LF)
    file        DIR/home/DigitizerGeneric/generated/summagraphics-bitpad2-crlf.xml
    settings    9600 7 Even 1
    resolution  200 LPI
    layout      XXXXUYYYYUBCL
    buttons     1 2 4 8
    support     documented
  
  Summagraphics Bit Pad Two (CR)
    file        DIR/home/DigitizerGeneric/generated/summagraphics-bitpad2-cr.xml
    settings    9600 7 Even 1
    resolution  200 LPI
    layout      XXXXUYYYYUBC
    buttons     1 2 4 8
    support     documented
  
  Summagraphics MM II 1201 (ASCII BCD)
    file        DIR/home/DigitizerGeneric/generated/summagraphics-mm2-1201.xml
    settings    9600 8 Odd 1
    resolution  500 LPI
    layout      XXXXUYYYYUBCL
    buttons     1 2 3 4
    support     documented
  
  Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)
    file        DIR/home/DigitizerGeneric/generated/summagraphics-uiof16.xml
    settings    9600 8 None 1
    resolution  1000 LPI
    layout      XXXXXUYYYYYUBCL
    buttons     1 2 3 4 5 6 7 8 9 A B C D E F G
    support     untested
  
  Wacom II-S ASCII (SD-510C, ArtPad)
    file        DIR/home/DigitizerGeneric/generated/wacom-iis-ascii.xml
    settings    9600 8 None 1
    resolution  1000 LPI
    layout      UUXXXXXUYYYYYUBBCL
    buttons     01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16
    support     documented

Installed files are listed too, one for each name. Files that cannot be read are skipped, and a driver that cannot be used is marked.

  $ cd home/DigitizerGeneric/generated
  $ description Broken XxY >broken.xml
  $ description Aachen >aachen.xml
  $ cp aachen.xml second.xml
  $ echo '<device' >malformed.xml; mkdir folder.xml; echo x >README
  $ digitizer drivers | sed -n 's/aachen.xml\|second.xml/EITHER/; /Aachen\|Broken/,/^$/p'
  Aachen
    file        DIR/home/DigitizerGeneric/generated/EITHER
    settings    9600 8 None 1
    resolution  10 LPMM
    layout      XXXXYYYYB
    buttons     1 2 3 4
    support     not stated
  
  Broken
    file        DIR/home/DigitizerGeneric/generated/broken.xml
    settings    50 5 None 1
    resolution  0 LPMM
    layout      not usable ('digitizer lint FILE' says why)
    buttons     
    support     not stated
  
  $ digitizer drivers --format json | grep 'Broken\|Wacom'
  {"buttons":[],"file":"DIR/home/DigitizerGeneric/generated/broken.xml","layout":"","name":"Broken","resolution":"0 LPMM","settings":"50 5 None 1","support":"","usable":false}
  {"buttons":["01","02","03","04","05","06","07","08","09","10","11","12","13","14","15","16"],"file":"DIR/home/DigitizerGeneric/generated/wacom-iis-ascii.xml","layout":"UUXXXXXUYYYYYUBBCL","name":"Wacom II-S ASCII (SD-510C, ArtPad)","resolution":"1000 LPI","settings":"9600 8 None 1","support":"documented","usable":true}
  $ digitizer drivers | grep -c file
  14

Wrong arguments.

  $ digitizer drivers x
  digitizer: unexpected argument 'x' (see 'digitizer drivers --help')
  [2]
  $ digitizer drivers --format jsn
  digitizer: --format is 'jsn', but must be one of text, json; did you mean json?
  [2]
  $ digitizer drivers --format
  digitizer: missing value after '--format' (see 'digitizer drivers --help')
  [2]
  $ digitizer drivers --fromat json
  digitizer: unknown option --fromat; did you mean --format? (see 'digitizer drivers --help')
  [2]
