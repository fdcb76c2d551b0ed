  $ . "$TESTDIR/setup.sh"

CTest sets BUILD, LIBRARY_FOLDER, COMPILER and CMAKE_OPTIONS. The package is installed and moved, and the example hosts
are built from what is there, with CMake and without it.

  $ cmake --install "$BUILD" --prefix "$folder/first" >log && mv first moved || cat log
  $ PATH=$folder/moved/bin:$PATH
  $ export PKG_CONFIG_PATH=$folder/moved/$LIBRARY_FOLDER/pkgconfig
  $ examples=moved/share/DigitizerGeneric/examples
  $ with_cmake() {
  >     eval "cmake -S '$1' -B '$2' -DCMAKE_PREFIX_PATH='$folder/moved' $CMAKE_OPTIONS" >log 2>&1 &&
  >         cmake --build "$2" >>log 2>&1 || cat log
  > }
  $ by_hand() {
  >     mkdir -p "$2"
  >     eval "$COMPILER $1/*.cpp -o $2/$3 $(pkg-config --cflags --libs $4) -Wl,-rpath,$folder/moved/$LIBRARY_FOLDER"
  > }
  $ with_cmake $examples/host cmake/host
  $ with_cmake $examples/dialog-host cmake/dialog-host
  $ by_hand $examples/host by-hand/host example-host DigitizerGeneric
  $ by_hand $examples/dialog-host by-hand/dialog-host dialog-host 'DigitizerGeneric Qt5Widgets'

The points that are pressed at the tablet arrive at each of them. The one with a window stays open when the tablet is
gone. OpenGL, which no host needs, is switched off, because it leaks memory when it is unloaded.

  $ start screen Xvfb -displayfd 1 -ac -nolisten tcp
  $ await test -s screen
  $ export DISPLAY=:$(cat screen) QT_QPA_PLATFORM=xcb QT_XCB_GL_INTEGRATION=none XDG_RUNTIME_DIR=$folder/runtime
  $ mkdir -m 0700 runtime home-of-user
  $ cat >script <<END
  > 2.5397 5.0794 1
  > 0.0000 0.0025 2
  > 31.3524 17.2419 3
  > 253.9657 0.0000 4
  > END
  $ generic='Generic 5-5-1 (ASCII)'
  $ closed() {
  >     await grep -q 'button 4' host
  >     kill $host
  >     wait $host
  >     cat host host.errors
  > } 2>/dev/null
  $ host() {
  >     tablet --driver "$generic" --script script
  >     start host "$1" "$generic" "$folder/tablet"
  >     ended simulator >/dev/null
  > }
  $ host cmake/host/example-host; ended host
  2.5397 cm, 5.0794 cm, button 1
  0.0000 cm, 0.0025 cm, button 2
  31.3524 cm, 17.2419 cm, button 3
  253.9657 cm, 0.0000 cm, button 4
  the port is lost: General read operation failure
  [1]
  $ host by-hand/host/example-host; ended host
  2.5397 cm, 5.0794 cm, button 1
  0.0000 cm, 0.0025 cm, button 2
  31.3524 cm, 17.2419 cm, button 3
  253.9657 cm, 0.0000 cm, button 4
  the port is lost: General read operation failure
  [1]
  $ host cmake/dialog-host/dialog-host; closed
  2.5397 cm, 5.0794 cm, button 1
  0.0000 cm, 0.0025 cm, button 2
  31.3524 cm, 17.2419 cm, button 3
  253.9657 cm, 0.0000 cm, button 4
  $ host by-hand/dialog-host/dialog-host; closed
  2.5397 cm, 5.0794 cm, button 1
  0.0000 cm, 0.0025 cm, button 2
  31.3524 cm, 17.2419 cm, button 3
  253.9657 cm, 0.0000 cm, button 4

A problem is one line. Permissions do not stop root, so root runs the hosts as another user.

  $ rm -f tablet; tablet --driver "$generic" --stay
  $ port=$(readlink tablet); chmod 0452 "$port"
  $ chmod o+x "$CRAMTMP"
  $ export HOME=$folder/home-of-user XDG_RUNTIME_DIR=$folder/home-of-user; unset XDG_DATA_HOME XDG_CONFIG_HOME
  $ as_user=
  $ if [ $(id -u) = 0 ]; then chown 65534:65534 home-of-user; as_user='setpriv --reuid=65534 --regid=65534 --clear-groups'; fi
  $ problems() {
  >     run $as_user "$1" 'My Tablet' /dev/null
  >     run $as_user "$1" "$generic" /dev/no-such-port
  >     run $as_user "$1" "$generic" "$port" 2>&1 | sed "s/owner $(id -un) /owner OWNER /"
  > }
  $ problems cmake/host/example-host
  no description in DIR/home-of-user/.local/share/Examples/example-host/generated has the name "My Tablet"
  there is no port /dev/no-such-port; check the name, and whether the cable is plugged in
  you may not use PTS: only its owner OWNER may (permissions 0452); ask an administrator to give a group, such as dialout, read and write permission
  $ problems cmake/dialog-host/dialog-host
  no description in DIR/home-of-user/.local/share/Examples/dialog-host/generated has the name "My Tablet"
  there is no port /dev/no-such-port; check the name, and whether the cable is plugged in
  you may not use PTS: only its owner OWNER may (permissions 0452); ask an administrator to give a group, such as dialout, read and write permission

Every header compiles in a host that uses "signals" as a name of its own and asks for an older C++.

  $ mkdir headers
  $ (cd moved/include/DigitizerGeneric && find . -name '*.h' | sed 's|\./\(.*\)|#include "\1"|') >headers/headers.cpp
  $ grep -c include headers/headers.cpp
  24
  $ cat >>headers/headers.cpp <<END
  > int signals, slots, emit;
  > static_assert(__cplusplus >= 201703L, "the library asks for C++17");
  > END
  $ cat >headers/CMakeLists.txt <<END
  > cmake_minimum_required(VERSION 3.18)
  > project(Headers CXX)
  > find_package(DigitizerGeneric 1.0 REQUIRED)
  > set(CMAKE_CXX_STANDARD 14)
  > add_library(headers STATIC headers.cpp)
  > target_compile_definitions(headers PRIVATE QT_NO_KEYWORDS)
  > target_link_libraries(headers PRIVATE MavSystem::DigitizerGeneric)
  > END
  $ with_cmake headers headers/build

Manual pages and descriptions are installed too.

  $ head -qc 4 moved/share/man/man1/digitizer.1 moved/share/man/man1/tablet-simulator.1; echo
  .TH .TH 
  $ ls moved/share/DigitizerGeneric/Plugins/digitizer/generated | grep generic
  generic-5-5-1.xml
