#!/usr/bin/env bash
# Every method of the seam is asked in the conformance suite, which runs on every home: a call behind
# the interface's name in Platform, or in a test's own words for what the seam hands out. What the
# seam calls instead is a method that a test overrides.   seam_check.sh [TESTS...]
set -euo pipefail
cd "$(dirname "$0")/../.."
tests=("${@:-tests/platform/conformance_*_test.cpp}")
awk '
  BEGIN {
    called["ProcessMemory"] = "memory"; called["PrintJob"] = "job"
    called["FormPeer"] = "formPeer"; called["ControlPeer"] = "peer"; called["WebRequest"] = "request"
    split("WindowProcedure HookHandler ChatLineHandler ControlEvents FormEvents", names, " ")
    for (i in names) isAnswering[names[i]] = 1
  }
  FILENAME ~ /platform.h$/ && match($0, /^  [A-Z][A-Za-z]*& [a-z]/) {
    split($0, words, /[ &;]+/); called[words[2]] = words[3]
  }
  /^class [A-Za-z]+/ { interface = $2 }
  /^  virtual [^~]/ && match($0, /[A-Za-z]+\(/) {
    method[interface "." substr($0, RSTART, RLENGTH - 1)] = interface
  }
  FILENAME ~ /_test.cpp$/ { sub("//.*", ""); text = text "\n" $0 }
  END {
    for (name in method) {
      interface = method[name]; call = substr(name, length(interface) + 2)
      if (interface in isAnswering) pattern = "[ *]" call "\\([^;{]*override"
      else pattern = "(^|[^A-Za-z])" called[interface] "(\\.|->)" call "\\("
      ++asked
      if ((!(interface in called) && !(interface in isAnswering)) || text !~ pattern) {
        print "no conformance test asks " name; ++missing
      }
    }
    print asked - missing " of " asked " methods of the seam are asked on every home"
    exit missing > 0
  }' src/platform/*.h ${tests[@]} | sort
