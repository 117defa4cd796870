# SPDX-License-Identifier: MIT
#
# The same work as `tarvelint-batch FILE -o OUT --vpd-column 4 --layers converted`, as one would write it in R with
# data.table: read, find zero flow in the lulls of VPD and PAR, straight baselines between those readings, convert,
# write. Everything is vectorised; data.table reads and writes with two threads, and two processes share the sensors.
#
#   Rscript bench/convert.R IN OUT
#
# Prints seconds: read, convert, write, all.

suppressPackageStartupMessages(library(data.table))
library(parallel)
setDTthreads(2)

missing_value <- 99999
vpd_limit <- 0.05
par_limit <- 0.01
lull_rows <- 3L

# Rows (1-based) inside a lull, without its first `lull_rows`, and the number of the lull each belongs to.
find_lulls <- function(vpd, par) {
  calm <- vpd <= vpd_limit & par <= par_limit
  calm[is.na(calm)] <- FALSE
  runs <- rle(calm)
  row <- which(calm & sequence(runs$lengths) > lull_rows)
  list(row = row, lull = rep(seq_along(runs$lengths), runs$lengths)[row])
}

# The row of the highest reading of each lull.
zero_flow_rows <- function(reading, lulls) {
  x <- reading[lulls$row]
  by_height <- order(lulls$lull, -x, method = "radix", na.last = NA)
  lulls$row[by_height[!duplicated(lulls$lull[by_height])]]
}

# Granier (1985), with the reading clipped to its baseline; missing outside the first and last point.
convert <- function(reading, points) {
  if (length(points) < 2) return(rep(NA_real_, length(reading)))
  baseline <- approx(points, reading[points], xout = seq_along(reading))$y
  flux <- 119 * pmax(baseline / reading - 1, 0)^1.23
  flux[reading <= 0 | baseline <= 0] <- NA_real_
  flux
}

arguments <- commandArgs(trailingOnly = TRUE)
seconds <- function() proc.time()[["elapsed"]]

start <- seconds()
record <- fread(arguments[1], na.strings = as.character(missing_value))
was_read <- seconds()

lulls <- find_lulls(record[["VPD"]], record[["PAR"]])
sensors <- grep("^S[0-9]+$", names(record), value = TRUE)
flux <- mclapply(sensors, mc.cores = 2, FUN = function(sensor) {
  reading <- record[[sensor]]
  convert(reading, zero_flow_rows(reading, lulls))
})
set(record, j = sensors, value = flux)
# The converted layer holds nothing for the columns that are not converted.
set(record, j = setdiff(names(record), sensors), value = NA_real_)
was_converted <- seconds()

fwrite(record, arguments[2], na = ".", eol = "\r\n")
was_written <- seconds()

cat(sprintf("read %.3f convert %.3f write %.3f all %.3f\n", was_read - start, was_converted - was_read,
            was_written - was_converted, was_written - start))
