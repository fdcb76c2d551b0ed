  $ . "$TESTDIR/setup.sh"

The report has the faults and the settings of the driver, and nothing private.

  $ mkdir -p home/DigitizerGeneric/generated
  $ description Broken XxY >home/DigitizerGeneric/generated/broken.xml
  $ cat >home/DigitizerGeneric/digitizer.conf <<END
  > [General]
  > driver=Broken
  > device=File:
  > digitizer_file_directory=$HOME/pen
  > secret=none of yours
  > END
  $ DIGITIZER_SECRET=environment digitizer doctor >report
  $ sed -n '/^Versions/,/^$/p' report
  Versions
    DigitizerGeneric  *.*.* (glob)
    Qt                5.* built with 5.* (glob)
    kernel            linux * (glob)
    distribution      * (glob)
    processor         * (glob)
  
  $ sed -n '/^Installed/,$p' report
  Installed descriptions
    broken.xml: see below
      broken.xml:2:66: error: character 2 of the template is "x", but must be one of XY.SBCLU
    calcomp-2000-ascii-6digit.xml: no faults
    calcomp-2000-ascii.xml: no faults
    calcomp-drawingboard3-preset3.xml: no faults
    generic-5-5-1.xml: no faults
    genius-newsketch-mm-1000.xml: no faults
    genius-newsketch-mm.xml: no faults
    genius-newsketch-uiof16.xml: no faults
    summagraphics-bitpad2-cr.xml: no faults
    summagraphics-bitpad2-crlf.xml: no faults
    summagraphics-mm2-1201.xml: no faults
    summagraphics-uiof16.xml: no faults
    wacom-iis-ascii.xml: no faults
  
  Settings
    driver            Broken
    device            File:
    digitizer_file_directory  ~/pen
  
  $ grep -c "$HOME\|DIR\|secret\|environment\|$(hostname)" report
  0
  [1]

The ports in it are those of the command; each exists and is listed with all that is known of it.

  $ digitizer ports 2>/dev/null | grep . >ports
  $ sed -n '/^Serial/,/^$/s/^  //p' report | grep -vx none | diff - ports
  $ digitizer ports --format json 2>/dev/null | sed 's/.*"port":"\([^"]*\)".*/\1/' | xargs -r ls >/dev/null
  $ digitizer ports --format json 2>/dev/null |
  >     grep -v '^{"description":.*,"holders":\[.*\],"holdersComplete":.*,"identifier":.*,"maker":.*,"port":.*,"problem":.*,"usable":.*}$'
  [1]
