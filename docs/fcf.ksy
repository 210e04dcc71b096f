meta:
  id: fcf
  title: Flash image of the Pelk radar signal processor
  file-extension: fcf
  endian: be
  encoding: UTF-8
doc: |
  A header page and, behind it, the binary configuration of one FPGA. A companion (.txt) is the
  header page alone. The format is described in fcf-format.md.
seq:
  - id: preamble
    type: preamble
  - id: text
    type: text
  - id: filler
    size: '_io.pos < 2112 ? (2112 - _io.pos + 5) / 6 * 6 : 0'
    doc: whole units of six bytes
  - id: payload
    size-eos: true
    doc: empty in a companion
types:
  preamble:
    seq:
      - id: total_pages
        type: s4
      - id: total_blocks
        type: s4
      - id: total_size
        type: s4
      - id: bin_pages
        type: s4
      - id: bin_blocks
        type: s4
      - id: bin_file_size
        type: s4
      - id: module_code
        type: s4
        enum: module_code
      - id: device_code
        type: s4
      - id: config_number
        type: s4
        doc: flash slot, 1 to 10
      - id: version_major
        type: s4
      - id: version_minor
        type: s4
      - id: reserved
        type: u4
        repeat: expr
        repeat-expr: 5
        doc: each 0xffffffff
      - id: line_feed
        contents: [0x0a]
  text:
    seq:
      - id: file_name
        type: 'line("Filename: ")'
      - id: ci_number
        type: 'line("CI No: ")'
      - id: author
        type: 'line("Author: ")'
      - id: date
        type: 'line("Date: ")'
      - id: time
        type: 'line("Time: ")'
      - id: description
        type: 'lines("Description: ")'
      - id: functions
        type: function_or_end
        repeat: until
        repeat-until: _.is_end
  function_or_end:
    doc: a function, or the mark behind the last one
    seq:
      - id: end_mark
        contents: [0x2d, 0x2d, 0x2d, 0x2d, 0x0a]
        if: is_end
      - id: function
        type: function
        if: not is_end
    instances:
      ahead:
        pos: _io.pos
        size: 5
      is_end:
        value: ahead == [0x2d, 0x2d, 0x2d, 0x2d, 0x0a]
  function:
    seq:
      - id: name
        type: 'line("Function name: ")'
      - id: author
        type: 'line("Function author: ")'
      - id: ci_number
        type: 'line("Function CI No: ")'
      - id: description
        type: 'lines("Function description: ")'
  line:
    params:
      - id: begins_with
        type: str
    seq:
      - id: prefix
        type: str
        size: begins_with.length
        valid: begins_with
      - id: value
        type: str
        terminator: 0x0a
  lines:
    doc: a text, and the mark behind its lines
    params:
      - id: begins_with
        type: str
    seq:
      - id: prefix
        type: str
        size: begins_with.length
        valid: begins_with
      - id: first_line
        type: str
        terminator: 0x0a
        doc: never the mark, whatever it contains
      - id: further_lines
        type: str
        terminator: 0x0a
        repeat: until
        repeat-until: _ == '---'
        doc: the mark is the last of them
enums:
  module_code:
    1: dfe
    2: dfe2_or_gpm
