  $ . "$TESTDIR/setup.sh"
  $ for name in Pen Other Unscaled; do description $name >$name.xml; done
  $ sed -i 's|<button>3</button><button>4</button>|<button>4</button><button>3</button>|' Other.xml
  $ sed -i 's|<resolution.*</resolution>||' Unscaled.xml
  $ mkdir -p home/DigitizerGeneric/generated && mv *.xml home/DigitizerGeneric/generated

Each directory starts with one piece; a file in it that ends in .txt was imported before.

  $ piece='A- 1\nX:100:200\nA- 4\nX:1:1\n'
  $ pen() {
  >     rm -rf pen && mkdir pen
  >     for file in "$@"; do printf "$piece" >pen/$file; done
  > }
  $ import() { digitizer import pen --driver Pen --settle 0 --format csv "$@" </dev/null; }

The three answers.

  $ pen a.dat
  $ import --answer import
  number,x_cm,y_cm,button,kind
  1,1,2,1,corner
  2,0.01,0.01,4,end
  digitizer: 1 file imported, 2 points: corner 1, end 1
  $ ls pen
  a.txt
  $ import
  number,x_cm,y_cm,button,kind
  digitizer: 0 files imported, 0 points
  $ ls pen
  a.txt
  $ pen a.dat B.DAT c.txt
  $ import --answer delete
  number,x_cm,y_cm,button,kind
  digitizer: 2 files deleted
  $ ls pen
  c.txt
  $ pen a.dat
  $ import --answer cancel
  number,x_cm,y_cm,button,kind
  digitizer: nothing was imported; 1 file left
  [1]
  $ ls pen
  a.dat

Without a terminal and an answer, nothing happens to the files.

  $ import
  number,x_cm,y_cm,button,kind
  digitizer: Digitizer files are ready to be imported. There is no terminal and no --answer, so they are left alone.
  digitizer: nothing was imported; 1 file left
  [1]
  $ ls pen
  a.dat
  $ import --watch
  number,x_cm,y_cm,button,kind
  digitizer: Digitizer files are ready to be imported. There is no terminal and no --answer, so they are left alone.
  digitizer: nothing was imported; 1 file left
  [1]
  $ ls pen
  a.dat

At a terminal, the driver asks.

  $ for typed in import I delete 'd\ndel\n\nc'; do
  >     pen a.dat
  >     printf '# digitizer session 1\n0 "%s\\n"\n' "$typed" >typed
  >     tablet --replay typed --stay
  >     echo "typed: $typed"
  >     digitizer import pen --driver Pen --settle 0 <tablet; echo "[$?]"; ls pen
  > done
  typed: import
  number     x (cm)     y (cm)  button  kind
       1     1.0000     2.0000       1  corner
       2     0.0100     0.0100       4  end
  digitizer: Digitizer files are ready to be imported.
  Import, Delete, Cancel? digitizer: 1 file imported, 2 points: corner 1, end 1
  [0]
  a.txt
  typed: I
  number     x (cm)     y (cm)  button  kind
       1     1.0000     2.0000       1  corner
       2     0.0100     0.0100       4  end
  digitizer: Digitizer files are ready to be imported.
  Import, Delete, Cancel? digitizer: 1 file imported, 2 points: corner 1, end 1
  [0]
  a.txt
  typed: delete
  number     x (cm)     y (cm)  button  kind
  digitizer: Digitizer files are ready to be imported.
  Import, Delete, Cancel? digitizer: 1 file deleted
  [0]
  typed: d
  del
  
  c
  number     x (cm)     y (cm)  button  kind
  digitizer: Digitizer files are ready to be imported.
  Import, Delete, Cancel? Import, Delete, Cancel? Import, Delete, Cancel? Import, Delete, Cancel? digitizer: nothing was imported; 1 file left
  [1]
  a.dat

Why a file is left.

  $ pen a.dat a.txt; ln -s nowhere pen/b.txt; printf "$piece" >pen/b.dat
  $ import --answer import 2>errors
  number,x_cm,y_cm,button,kind
  1,1,2,1,corner
  2,0.01,0.01,4,end
  3,1,2,1,corner
  4,0.01,0.01,4,end
  [1]
  $ sort errors
  digitizer: 0 files imported, 4 points: corner 2, end 2
  digitizer: a.dat is left: its points were delivered, but a.txt already exists; the next import delivers them again
  digitizer: b.dat is left: its points were delivered, but b.txt already exists; the next import delivers them again
  $ ls pen
  a.dat
  a.txt
  b.dat
  b.txt
  $ pen $(seq -f %g.dat 22) $(seq -f %g.txt 22)
  $ import --answer import >/dev/null 2>errors
  [1]
  $ sed -n 's/ [0-9]*\.dat.*/ FILE/p' errors | uniq -c; tail -1 errors
       20 digitizer: FILE
  digitizer: and 2 more files
  $ pen a.dat; rm pen/a.dat; mkdir pen/a.dat
  $ import --answer import
  number,x_cm,y_cm,button,kind
  digitizer: 0 files imported, 0 points

Each format, the extended buttons in the internal mode, and a picture. The driver may come from the settings, which
keep the directory.

  $ pen a.dat
  $ digitizer import pen --driver Pen --answer import --settle 0
  number     x (cm)     y (cm)  button  kind
       1     1.0000     2.0000       1  corner
       2     0.0100     0.0100       4  end
  digitizer: 1 file imported, 2 points: corner 1, end 1
  $ pen a.dat
  $ digitizer import pen --driver Pen --answer import --settle 0 --format json
  {"button":1,"kind":"corner","number":1,"x":1,"y":2}
  {"button":4,"kind":"end","number":2,"x":0.01,"y":0.01}
  digitizer: 1 file imported, 2 points: corner 1, end 1
  $ pen; printf 'A- 3\nA- 1\nX:100:200\nA- 4\nX:0:0\n' >pen/a.dat
  $ printf '[General]\ndriver=Pen\n' >home/DigitizerGeneric/digitizer.conf
  $ digitizer import pen --answer import --extended --mode 55 --format csv
  number,x_cm,y_cm,button,kind
  1,1,2,3,hole
  2,1,2,1,corner
  3,0,0,4,end
  4,0,0,4,end
  5,0,0,4,end
  digitizer: 1 file imported, 5 points: corner 1, hole 1, end 3
  $ plain home/DigitizerGeneric/digitizer.conf
  [General]
  digitizer_file_directory=DIR/pen
  driver=Pen
  $ pen; printf 'X:0:0\nX:900:0\nX:0:900\nA- 4\nX:0:0\n' >pen/a.dat
  $ import --answer import --picture a.svg >/dev/null; grep -c '<path' a.svg
  digitizer: 1 file imported, 4 points: corner 3, end 1
  1

A directory is watched until the end.

  $ pen a.dat
  $ start import digitizer import "$PWD/pen" --driver Pen --answer import --format csv --watch
  $ await grep watching import.errors
  $ printf "$piece" >b.dat; mv b.dat pen; await test -e pen/b.txt
  $ rm -r pen; await grep waiting import.errors
  $ pen c.dat; await grep back import.errors; await test -e pen/c.txt
  $ stop import 2>errors
  number,x_cm,y_cm,button,kind
  1,1,2,1,corner
  2,0.01,0.01,4,end
  3,1,2,1,corner
  4,0.01,0.01,4,end
  5,1,2,1,corner
  6,0.01,0.01,4,end
  $ sed 's/[0-9] files/N files/' errors
  digitizer: watching DIR/pen; press Ctrl-C to stop
  digitizer: DIR/pen is gone; waiting for it to come back (press Ctrl-C to stop)
  digitizer: DIR/pen is back
  digitizer: N files imported, 6 points: corner 3, end 3
  $ pen a.dat
  $ start import digitizer import pen --driver Pen --answer import --format csv --watch --settle 0
  $ await grep watching import.errors; rm -r pen
  $ ended import 2>errors
  number,x_cm,y_cm,button,kind
  1,1,2,1,corner
  2,0.01,0.01,4,end
  [1]
  $ sed 's/[0-9] files\{0,1\}/N files/' errors
  digitizer: watching DIR/pen; press Ctrl-C to stop
  digitizer: DIR/pen is gone
  digitizer: N files imported, 2 points: corner 1, end 1

The command waits until a file is complete; at a terminal it names the file.

  $ shown() { sed 's/^received "\(.*\)"/\1/' simulator.errors | tr -d '\n'; }
  $ shows() { shown | grep "$1"; }
  $ pen; printf 'A- 1\n' >pen/a.dat
  $ echo '# digitizer session 1' >silence; echo '100000 "x"' >>silence
  $ tablet --replay silence
  $ timeout --foreground 60 digitizer import pen --driver Pen --answer import --settle 3000 >out 2>tablet & import=$!
  $ await shows 'waiting for a.dat to be complete'
  $ printf 'X:100:200\nA- 4\nX:1:1\n' >>pen/a.dat
  $ wait $import
  $ cat out
  number     x (cm)     y (cm)  button  kind
       1     1.0000     2.0000       1  corner
       2     0.0100     0.0100       4  end
  $ await shows 'digitizer: .*end 1.n'
  $ shown | sed 's/.*K//'
  digitizer: 1 file imported, 2 points: corner 1, end 1\n (no-eol)

At a terminal, progress is shown, and removed before the summary.

  $ pen; yes X:1:1 | head -500000 >pen/a.dat
  $ tablet --replay silence
  $ timeout --foreground 60 digitizer import pen --driver Pen --answer import --settle 0 >/dev/null 2>tablet
  $ await shows 'digitizer: .*end 1.n'
  $ shown | sed 's/ of 1 file, [0-9]* points\(.*\)\(.r.x1b.Kdig\)/ of 1 file, N points ... \2/'
  \r\x1b[K0 of 1 file, N points ... \r\x1b[Kdigitizer: 1 file imported, 500001 points: corner 500000, end 1\n (no-eol)

Nothing is lost when the output cannot be written.

  $ pen a.dat b.dat
  $ command digitizer import pen --driver Pen --answer import --format json >/dev/full
  digitizer: cannot write to standard output; the current pen file and those after it are left unchanged
  [1]
  $ ls pen
  a.dat
  b.dat

Wrong arguments change nothing.

  $ rm home/DigitizerGeneric/digitizer.conf
  $ digitizer import --driver Pen
  digitizer: DIR is missing (see 'digitizer import --help')
  [2]
  $ digitizer import nowhere --driver Pen
  digitizer: there is no directory nowhere; give the directory of the pen files
  [1]
  $ digitizer import pen/a.dat --driver Pen
  digitizer: pen/a.dat is not a directory; give the directory of the pen files
  [1]
  $ digitizer import pen
  digitizer: --driver is missing; 'digitizer drivers' lists the names
  [2]
  $ for wrong in '--driver Pem' '--driver Other' '--driver Unscaled'; do
  >     digitizer import pen --answer import $wrong
  > done
  digitizer: no driver has the name "Pem"; did you mean "Pen"? ('digitizer drivers' lists the names)
  digitizer: driver "Other" gives the pen's button 3 the number 4; choose a driver with the button codes 1 to 4, in this order
  digitizer: driver "Unscaled" cannot scale the pen's positions: its description has no resolution
  [1]
  $ for wrong in '--answer imp' '--settle 60001' '--mode -1' '--picture a.jpg' '--format xml' x; do
  >     import $wrong; echo "[$?]"
  > done
  digitizer: --answer is 'imp', but must be one of import, delete, cancel; did you mean import?
  [2]
  digitizer: --settle is '60001', but must be a number from 0 to 60000
  [2]
  digitizer: --mode is '-1', but must be a number from 0 to 2147483647
  [2]
  digitizer: --picture is 'a.jpg', but must end in .svg or .png
  [2]
  digitizer: --format is 'xml', but must be one of text, csv, json
  [2]
  digitizer: unexpected argument 'x' (see 'digitizer import --help')
  [2]
  $ ls pen
  a.dat
  b.dat
