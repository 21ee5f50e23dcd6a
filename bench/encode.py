"""What the presets of libx264 cost and give on three kinds of picture in the three qualities, by the program's own
command lines; beside them ffmpeg's default preset without burn-in, and HandBrakeCLI at the same size and bit rate.

    encode.py MARROWCUT-CLI TABLE.md PLOT.svg
"""

import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

from plot import plot
from recording import recorded_commands, words

SECONDS = 4  # of 1280x704, which gives whole, even heights in all three sizes
PICTURES = {
    "calm": ("mandelbrot=s=1600x900:r=25:start_scale=1.2:end_scale=1.2:end_pts=1000000,"
             "crop=1280:704:160+24*sin(t*1.3):90+12*sin(t*2),gblur=sigma=1.5,noise=alls=3:allf=t"),
    "detail in motion": "mandelbrot=s=1280x704:r=25",
    "grain": "testsrc2=s=1280x704:r=25,noise=alls=20:allf=t",
}
QUALITIES = ("standard", "smaller", "tiny")
PRESETS = ("ultrafast", "superfast", "veryfast", "faster", "medium")
CHOSEN = "veryfast"
TEXT_AREA = "crop=iw*0.64:ih*0.36:iw*0.36:0"
MEASURES = (f"[0:v]format=yuv420p,split=3[a][b][c];[1:v]format=yuv420p,split=3[d][e][f];"
            f"[c]{TEXT_AREA},split[g][h];[f]{TEXT_AREA},split[i][j];"
            "[a][d]psnr@whole[o];[b][e]ssim@whole[p];[g][i]psnr@text[q];[h][j]ssim@text[r]")
FIGURES = {"PSNR": r"psnr@whole .*average:([\d.]+)", "SSIM": r"ssim@whole .*All:([\d.]+)",
           "PSNR, text": r"psnr@text .*average:([\d.]+)", "SSIM, text": r"ssim@text .*All:([\d.]+)"}


def quietly(command):
    """Runs a command to its end and returns its processor time in seconds."""
    process = subprocess.Popen(list(map(str, command)), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    assert process.returncode == 0, command
    return usage.ru_utime + usage.ru_stime


def make_clip(path, picture):
    source = f"{picture},trim=duration={SECONDS},format=yuv420p"
    quietly(["ffmpeg", "-y", "-f", "lavfi", "-i", source, "-c:v", "libx264", "-preset", "ultrafast", "-crf", "6", path])


def without_text(arguments):
    return [re.sub(r",drawtext=.*\[v\]", "[v]", word) for word in arguments]


def with_preset(arguments, preset, output):
    changed = list(arguments)
    changed[changed.index("-preset") + 1] = preset
    return changed[:-1] + [output]


def lossless(arguments, output):
    """The picture that the encoder is given."""
    return arguments[:arguments.index("-c:v")] + ["-c:v", "ffv1", "-pix_fmt", "yuv420p", output]


def size_of(video):
    query = ["ffprobe", "-v", "error", "-show_entries", "stream=width,height", "-of", "csv=p=0", video]
    return subprocess.check_output(query, text=True).strip().split(",")


def handbrake(arguments, clip, size, output):
    def kilobits(option):
        number = arguments[arguments.index(option) + 1]
        return round(float(number[:-1]) * (1000 if number.endswith("M") else 1))

    limits = f"vbv-maxrate={kilobits('-maxrate')}:vbv-bufsize={kilobits('-bufsize')}"
    return ["HandBrakeCLI", "-i", clip, "-o", output, "-e", "x264", "--encoder-preset", CHOSEN, "-b", kilobits("-b:v"),
            "-x", limits, "-w", size[0], "-l", size[1], "--crop", "0:0:0:0", "--non-anamorphic", "-r", "25", "--cfr",
            "-a", "none"]


def judged(output, reference):
    said = subprocess.run(["ffmpeg", "-nostdin", "-i", output, "-i", reference, "-filter_complex", MEASURES,
                           *(word for pad in "opqr" for word in ("-map", f"[{pad}]")), "-f", "null", "-"],
                          stderr=subprocess.PIPE, check=True, text=True).stderr
    figures = {name: float(re.search(pattern, said)[1]) for name, pattern in FIGURES.items()}
    return {"kb/s": os.path.getsize(output) * 8 / SECONDS / 1000, **figures}


def measure(work, program, clip, quality):
    """The figures of each way to encode the clip in that quality."""
    folder = work / "recording"
    ours = words(recorded_commands(program, folder, "--quality", quality, clip, encoding=False)[-1])
    plain = without_text(ours)
    references = {}
    for name, arguments in (("ours", ours), ("plain", plain)):
        references[name] = folder / f"{name}.mkv"
        quietly(lossless(arguments, references[name]))

    output = folder / "output.mp4"
    commands = {f"libx264 {preset}": (with_preset(ours, preset, output), "ours") for preset in PRESETS}
    commands["ffmpeg's default, no text"] = (with_preset(plain, "medium", output), "plain")
    if shutil.which("HandBrakeCLI"):
        commands[f"HandBrake {CHOSEN}, no text"] = (handbrake(ours, clip, size_of(references["plain"]), output),
                                                      "plain")
    figures = {}
    for name, (command, reference) in commands.items():
        seconds = quietly(command)
        figures[name] = {"CPU s": seconds, **judged(output, references[reference])}
        print(f"  {quality}, {name}: {seconds:.1f} s", file=sys.stderr)
    shutil.rmtree(folder)
    return figures


def cell(name, value):
    return f"{value:.4f}" if name.startswith("SSIM") else f"{value:.0f}" if name == "kb/s" else f"{value:.1f}"


def as_table(results):
    columns = ["CPU s", "kb/s", *FIGURES]
    lines = ["| picture | quality | encoder | " + " | ".join(columns) + " |", "|---|---|---|" + "--:|" * len(columns)]
    for (picture, quality), figures in results.items():
        for name, values in figures.items():
            shown = f"**{name}**" if name.endswith(f"libx264 {CHOSEN}") else name
            lines.append(f"| {picture} | {quality} | {shown} | "
                         + " | ".join(cell(column, values[column]) for column in columns) + " |")
    return "\n".join(lines) + "\n"


def summary(results):
    """How each way compares with the chosen preset: geometric mean of CPU time, mean of the differences."""
    print(f"against libx264 {CHOSEN}, over {len(results)} combinations of picture and quality:")
    for name in next(iter(results.values())):
        pairs = [(figures[name], figures[f"libx264 {CHOSEN}"]) for figures in results.values()]
        cpu = statistics.geometric_mean(one["CPU s"] / chosen["CPU s"] for one, chosen in pairs)
        differences = [statistics.mean(one[figure] - chosen[figure] for one, chosen in pairs)
                       for figure in ("PSNR", "PSNR, text")]
        print(f"{name}: CPU time x {cpu:.2f}, PSNR {differences[0]:+.2f} dB, of the text {differences[1]:+.2f} dB")


def main(program, table, drawing):
    if not shutil.which("HandBrakeCLI"):
        print("HandBrakeCLI (package handbrake-cli) is not installed: left out")
    results = {}
    with tempfile.TemporaryDirectory() as name:
        work = Path(name)
        for picture, source in PICTURES.items():
            clip = work / "A001C001.mov"
            make_clip(clip, source)
            for quality in QUALITIES:
                print(picture, file=sys.stderr)
                results[picture, quality] = measure(work, program, clip, quality)
    Path(table).write_text(as_table(results))
    Path(drawing).write_text(plot(results, [f"libx264 {preset}" for preset in PRESETS]))
    summary(results)


main(*map(os.path.abspath, sys.argv[1:4]))
