"""Inputs that cannot be read, or that nobody would write."""

import os

import program
from program import APT, JOB, REPORT, TABLE

# Without this capability a file without permissions is closed to root too.
POWERLESS = ("setpriv", "--bounding-set=-all", "--inh-caps=-all")
CANNOT = "error ERR_5009: the PP word table cannot be opened: "


class Tables(program.ProgramTest):
    def refused(self, name, reason):
        return f"{name}: {CANNOT}{reason}\n"

    def test_absent_table_is_refused_by_every_command(self):
        self.write("job", JOB)
        reason = self.refused("absent", "No such file or directory")
        self.check(self.run_program("check", "absent"), 1, "absent: refused\n", reason)
        self.check(self.run_program("list", "absent"), 1, "", reason)
        self.check(self.run_program("post", "job", "-t", "absent"), 1, "", reason)

    def test_folder_is_refused(self):
        self.check(
            self.run_program("check", "."), 1, ".: refused\n", self.refused(".", "it is a directory")
        )

    def test_devices_are_refused(self):
        for device in ("/dev/null", "/dev/zero", "/dev/stdin"):
            self.check(
                self.run_program("check", device),
                1,
                device + ": refused\n",
                self.refused(device, "it is not a regular file"),
            )

    def test_pipe_is_refused_without_waiting(self):
        os.mkfifo(os.path.join(self.folder, "pipe"))
        self.check(
            self.run_program("check", "pipe"),
            1,
            "pipe: refused\n",
            self.refused("pipe", "it is not a regular file"),
        )

    def test_table_without_permission_is_refused(self):
        self.write("table", TABLE)
        os.chmod(os.path.join(self.folder, "table"), 0)
        self.check(
            self.run_program("check", "table", prefix=POWERLESS),
            1,
            "table: refused\n",
            self.refused("table", "Permission denied"),
        )

    def test_file_that_cannot_be_read_is_refused(self):
        self.check(
            self.run_program("list", "/proc/self/mem"),
            1,
            "",
            self.refused("/proc/self/mem", "Input/output error"),
        )

    def test_ring_of_links_is_refused(self):
        os.symlink("ring", os.path.join(self.folder, "ring"))
        self.check(
            self.run_program("list", "ring"),
            1,
            "",
            self.refused("ring", "Too many levels of symbolic links"),
        )

    def test_file_of_more_than_a_gibibyte_is_refused_unread(self):
        self.write("job", JOB)
        self.write("table", "")
        os.truncate(os.path.join(self.folder, "table"), 2**30 + 1)
        reason = self.refused("table", "it is larger than 1 GiB")
        self.check(self.run_program("check", "table"), 1, "table: refused\n", reason)
        self.check(self.run_program("check", "--lint", "table"), 1, "table: refused\n", reason)
        self.check(self.run_program("list", "table"), 1, "", reason)
        self.check(self.run_program("explain", "table", "NC_GOTO"), 1, "", reason)
        self.check(self.run_program("post", "job", "-t", "table"), 1, "", reason)

    def test_empty_name_is_refused(self):
        self.check(
            self.run_program("check", ""), 1, ": refused\n", self.refused("", "No such file or directory")
        )

    def test_every_table_is_checked_and_the_highest_status_given(self):
        self.write("good", TABLE)
        self.write("bad", "*START_LIST\n*END\n")
        done = self.run_program("check", "bad", "absent", "good")
        self.check(
            done,
            1,
            "bad: refused\nabsent: refused\ngood: passes\n",
            'bad:1:13: error ERR_5006: *START_LIST names no parameter; write "*START_LIST '
            'MFG_NAME"\n'
            "  *START_LIST\n"
            "              ^\n" + self.refused("absent", "No such file or directory"),
        )

    def test_random_bytes_are_refused_or_pass(self):
        for seed in range(12):
            bytes_ = bytes((seed * 7 + i * i * 31 + (i >> 3)) & 0xFF for i in range(5000))
            self.write("table", bytes_ + b"\n*START_FORMAT MFG_\x80\xff\n%\x00n\n*END\n")
            for command in (["check"], ["list"], ["list", "--format", "json"]):
                self.assertIn(self.run_program(*command, "table").returncode, (0, 1))

    def test_file_without_blocks_is_warned_of_by_every_reader(self):
        self.write("letter", "Dear customer\n")
        warning = "letter: warning no-section: the table has no block, so it changes nothing\n"
        for arguments in (["list", "letter"], ["words", "letter"], ["code", "letter", "GOTO"]):
            done = self.run_program(*arguments)
            self.assertTrue((done.stderr or "").startswith(warning), arguments)

    def test_strict_check_fails_on_warnings_only(self):
        self.write("empty", "")
        self.write("good", TABLE)
        warning = "empty: warning no-section: the table has no block, so it changes nothing\n"
        self.check(self.run_program("check", "empty"), 0, "empty: passes, 1 warning\n", warning)
        self.check(
            self.run_program("check", "--strict", "empty"),
            1,
            "empty: passes, 1 warning; refused by --strict\n",
            warning,
        )
        self.check(self.run_program("check", "--strict", "good"), 0, "good: passes\n")

    def test_name_that_a_terminal_would_obey_is_escaped(self):
        self.write("a\x1b[2Jb", TABLE)
        self.check(self.run_program("check", "a\x1b[2Jb"), 0, "a\\x1b[2Jb: passes\n")


class Jobs(program.ProgramTest):
    def check_refused(self, job, message):
        self.check(self.run_program("post", job, "-o", "apt"), 1, "", message)
        self.assertNotIn("apt", self.files())

    def check_refused_line(self, line, message):
        self.write("job", '{"job":1,"program":"P","units":"mm"}\n' + line + '\n{"end":true}\n')
        self.check_refused("job", message)

    def test_job_behind_a_byte_order_mark_is_refused(self):
        self.write("job", "\ufeff" + JOB)
        self.check_refused(
            "job",
            "job:1: error: $: the job begins with a byte-order mark; write it as UTF-8 without one\n",
        )

    def test_format_that_shows_no_number_is_refused(self):
        self.write(
            "job", '{"job":1,"program":"P","units":"mm","pointFormat":".3f"}\n{"end":true}\n'
        )
        self.check_refused(
            "job",
            "job:1:51: error: $.pointFormat: no number can be printed with this format; write one"
            " conversion of e, f, g or a, such as %.3f\n"
            '  {"job":1,"program":"P","units":"mm","pointFormat":".3f"}\n'
            "                                                    ^\n",
        )

    def test_absent_job_is_refused(self):
        self.check_refused("absent", "absent: error: cannot be opened: No such file or directory\n")

    def test_folder_is_refused(self):
        self.check_refused(".", ".: error: cannot be read: Is a directory\n")

    def test_job_without_permission_is_refused(self):
        self.write("job", JOB)
        os.chmod(os.path.join(self.folder, "job"), 0)
        self.check(
            self.run_program("post", "job", prefix=POWERLESS),
            1,
            "",
            "job: error: cannot be opened: Permission denied\n",
        )

    def test_endless_device_is_refused(self):
        self.check_refused(
            "/dev/zero",
            "/dev/zero:1:1: error: neither a job (JSON Lines, begins with '{') nor a canonical "
            "listing (begins with '    1 N.....') nor an NC program (has words such as G1 in its first "
            "lines)\n",
        )

    def test_empty_device_is_refused(self):
        self.check_refused(
            "/dev/null",
            "/dev/null: error: the input is empty; a job (JSON Lines), a canonical listing or an NC "
            "program is expected\n",
        )

    def test_job_comes_through_a_pipe(self):
        done = self.run_program("post", "-", stdin=None, input=JOB)
        self.check(
            done,
            0,
            APT,
            REPORT.replace("job:", "standard input:") + "  not verified\nstandard output: written\n",
        )

    def test_error_in_a_pipe_has_no_source_line(self):
        done = self.run_program("post", "-", stdin=None, input=JOB.replace("[4,", "[x,"))
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"^standard input:2:\d+: error: [^\n]*\n$")

    def test_job_that_is_cut_is_refused(self):
        self.write("job", JOB[:60])
        done = self.run_program("post", "job", "-o", "apt")
        self.assertEqual((done.returncode, self.files()), (1, ["job"]))
        self.assertTrue(done.stderr.startswith("job:2"), done.stderr)

    def test_job_without_its_end_is_refused(self):
        self.write("job", JOB.replace('{"end":true}\n', ""))
        self.check_refused(
            "job", 'job:2: error: the job is cut short; its last line must be {"end": true}\n'
        )

    def test_number_that_no_double_holds_is_refused(self):
        self.check_refused_line(
            '{"nc":"NC_GOTO","points":[[1e400,0,0]]}',
            "job:2:28: error: $.points[0][0]: the number 1e400 is out of range\n"
            '  {"nc":"NC_GOTO","points":[[1e400,0,0]]}\n'
            "                             ^\n",
        )

    def test_not_a_number_is_refused(self):
        self.check_refused_line(
            '{"nc":"NC_GOTO","points":[[NaN,0,0]]}',
            "job:2:28: error: $.points[0][0]: a number is expected, found NaN\n"
            '  {"nc":"NC_GOTO","points":[[NaN,0,0]]}\n'
            "                             ^\n",
        )

    def test_unknown_key_is_refused_at_its_place(self):
        self.check_refused_line(
            '{"nc":"NC_GOTO","poinst":[[1,2,3]]}',
            'job:2:17: error: $: unknown key "poinst"; did you mean "points"?\n'
            '  {"nc":"NC_GOTO","poinst":[[1,2,3]]}\n'
            "                  ^\n",
        )

    def test_unknown_instruction_is_refused(self):
        self.check_refused_line(
            '{"nc":"NC_NOWHERE"}',
            "job:2: error: this document has no NC instruction NC_NOWHERE\n",
        )

    def test_sequential_motion_of_an_unknown_instruction_is_refused(self):
        self.check_refused_line(
            '{"nc":"NC_NOWHERE#SEQMOTION#3"}',
            "job:2: error: this document has no NC instruction NC_NOWHERE#SEQMOTION#3\n",
        )

    def test_line_longer_than_a_mebibyte_is_refused(self):
        self.check_refused_line(
            '{"nc":"NC_GOTO","points":[' + "[1,2,3]," * 140000 + "[1,2,3]]}",
            "job:2: error: the line is longer than 1 MiB (1048576 bytes)\n",
        )

    def test_error_far_into_a_line_is_cut_out(self):
        points = "[1,2,3]," * 1000
        self.check_refused_line(
            '{"nc":"NC_GOTO","points":[' + points + "[1,2,true]]}",
            "job:2:8032: error: $.points[1000][2]: a number is expected, found true\n"
            "  ...3]," + "[1,2,3]," * 7 + "[1,2,true]]}\n" + " " * 69 + "^\n",
        )


if __name__ == "__main__":
    program.main()
