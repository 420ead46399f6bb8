<#
.SYNOPSIS
  Entries that wait in a queue, sent as one batch; the host refuses one of them.
.DESCRIPTION
  On a desktop with Quillet, the library registered, with the 32-bit PowerShell:

    %SystemRoot%\SysWOW64\WindowsPowerShell\v1.0\powershell.exe -File batch.ps1

  A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
  time. Its report numbers these host entries from 1 and says which of them the host refused. An error goes to standard
  error, and the status is 1.
#>
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'
$notQueued = 2400        # whatever keeps an entry out of the queue

# The number that the documentation names; any other status is the number itself.
function Get-Number([Exception] $Exception) {
  if (($Exception.HResult -band 0xFFFF0000) -eq 0x800A0000) { $Exception.HResult -band 0xFFFF } else { $Exception.HResult }
}

# A key that is there already, whatever its case, is an error.
function Add-Once($Queue, [string] $Entry, [string] $Key) {
  try {
    [void] $Queue.Add($Entry, $Key)
  } catch {
    if ((Get-Number $_.Exception.GetBaseException()) -ne $notQueued) { throw }
    "$Entry is not queued: there is an entry under its key, $($Queue.Item($Key).Command)"
  }
}

function Send-Batch($Queue) {
  for ($position = 1; $position -le $Queue.Count; ++$position) { "> $($Queue.Item($position).Command)" }

  $batch = New-Object -ComObject Wendrill23.CBatch
  $report = New-Object -ComObject Scripting.Dictionary     # a bag, filled by the call
  $batch.Commands = $Queue
  $batch.SubmitWithResponse($report)

  $number = 0
  foreach ($response in $report.Item('strKeyResponseArray')) {
    ++$number
    "${number}: $($response.Substring(0, [Math]::Min(80, $response.Length)).TrimEnd(' '))"
  }
  if ($report.Item('blnKeyResponseOK')) {
    'The host accepted everything.'
  } else {
    "Refused: host entry $($report.Item('strKeyErr'))"
  }
}

try {
  $queue = New-Object -ComObject Wendrill23.CQueue
  [void] $queue.Add('RM PAID BY CARD AT THE DESK')
  [void] $queue.Add('RM WINDOW SEATS WANTED', 'seats')     # an entry may have a key
  [void] $queue.Add('ER', 'end')
  [void] $queue.Add('RUBBISH')        # "RU" begins a host entry; the host does not understand this one
  Add-Once $queue 'ET' 'END'
  Send-Batch $queue
} catch {
  $cause = $_.Exception.GetBaseException()
  [Console]::Error.WriteLine("Error $(Get-Number $cause): $($cause.Message)")
  exit 1
}
