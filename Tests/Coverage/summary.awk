# Reads what `llvm-cov report` writes and tells how many of the kit's and of the platform's lines ran, and in which files the
# most did not. Fails when fewer ran than have to.
BEGIN {
    least["ZRKitDynamic"] = 98
    least["ZRPlatform"] = 90
}

# A file: its name, then regions, functions and lines, each as how many, how many missed, and the share.
$1 ~ /^ZR(KitDynamic|Platform)\/.*\.(cpp|h)$/ {
    part = substr($1, 1, index($1, "/") - 1)
    lines[part] += $8
    missed[part] += $9
    if ($9 >= 5)
        printf "%5d of %5d lines did not run: %s\n", $9, $8, $1 | "sort -rn"
}

END {
    close("sort -rn")
    for (part in least) {
        if (!lines[part]) {
            print part ": no figures"
            failed = 1
            continue
        }
        share = 100 * (lines[part] - missed[part]) / lines[part]
        printf "%s: %.1f %% of %d lines ran; at least %d %% have to\n", part, share, lines[part], least[part]
        failed = failed || share < least[part]
    }
    exit failed
}
